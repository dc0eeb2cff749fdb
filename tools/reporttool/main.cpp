#include <reporttool/program.h>

#include <reportcore/platform.h>

#include <QtCore/QCoreApplication>

int main(int argc, char** argv)
{
    ReportCore::HoldStandardStreams();
    ReportTool::DropRemarksOfQt();
    const QCoreApplication application(argc, argv);
    return ReportTool::RunProgram();
}
