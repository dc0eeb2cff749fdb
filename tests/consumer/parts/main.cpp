// A program that knows nothing of Qt, two parts of which bring a version each.

bool UseReportWithQt5();
bool UseReportWithQt6();

int main()
{
    return UseReportWithQt5() && UseReportWithQt6() && UseReportWithQt5() ? 0 : 1;
}
