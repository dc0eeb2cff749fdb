#include <reportpicture/painters.h>

#include <reporttool/program.h>

#include <reportcore/filenames.h>
#include <reportcore/platform.h>

#include <QtGui/QGuiApplication>

int main(int argc, char** argv)
{
    ReportCore::HoldStandardStreams();
    ReportTool::DropMessagesOfQt();
    ReportCore::KeepOddFileNames();
    // Drawing needs no screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    ReportCore::SetOwnPainters(ReportPicture::AllPainters());
    return ReportTool::RunProgram();
}
