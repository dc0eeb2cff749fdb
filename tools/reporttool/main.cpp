#include <reporttool/program.h>

#include <reportcore/filenames.h>
#include <reportcore/platform.h>

#include <QtCore/QCoreApplication>

int main(int argc, char** argv)
{
    ReportCore::HoldStandardStreams();
    ReportTool::DropMessagesOfQt();
    ReportCore::KeepOddFileNames();
    const QCoreApplication application(argc, argv);
    return ReportTool::RunProgram();
}
