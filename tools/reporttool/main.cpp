#include <reporttool/program.h>

#include <QtCore/QCoreApplication>

int main(int argc, char** argv)
{
    ReportTool::DropRemarksOfQt();
    const QCoreApplication application(argc, argv);
    return ReportTool::RunProgram();
}
