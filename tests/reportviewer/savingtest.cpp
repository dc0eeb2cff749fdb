#include "viewerwindow.h"

#include "reporttool/samples.h"
#include "support/recordelements.h"

#include <reportviewer/changes.h>
#include <reportviewer/treepane.h>

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using ReportCore::FileForm;
using ReportCore::Form;
using ReportViewer::Questions;
using ViewerTest::ViewerWindow;

class ViewerSaving : public testing::Test
{
protected:
    ViewerSaving() : m_name(m_viewer.scratch.Write("report.xml", ToolTest::FullXml()))
    {
        m_viewer.Open(m_name);
    }

    void TargetIs(const char* name, const FileForm& form)
    {
        m_viewer.answers->target = Questions::Target{m_viewer.scratch.Path(name), form};
    }

    bool IsModified() { return m_viewer.window.isWindowModified(); }

    ViewerWindow m_viewer;
    const ToolTest::Scratch& m_scratch = m_viewer.scratch;
    const QString m_name;
};

TEST_F(ViewerSaving, EachFormHasTheBytesOfTheLibrary)
{
    const REPORTGENERATOR::ReportBase report(m_viewer.window.Model().Report());
    TargetIs("out.xml", {Form::Xml, false});
    EXPECT_TRUE(m_viewer.window.SaveAs());
    EXPECT_EQ(m_scratch.Read("out.xml"), report.GetXmlString().toUtf8());
    TargetIs("out.plain", {Form::Plain, false});
    EXPECT_TRUE(m_viewer.window.SaveAs());
    EXPECT_EQ(m_scratch.Read("out.plain"), report.GetBinaryRepresentationAsQByteArray());
    EXPECT_EQ(m_scratch.Read("out.plain"), ToolTest::FullPlain());
    TargetIs("out.compressed", {Form::Compressed, false});
    EXPECT_TRUE(m_viewer.window.SaveAs());
    EXPECT_EQ(m_scratch.Read("out.compressed"), report.GetCompressedBinaryRepresentationAsQByteArray(-1));
    TargetIs("out.file", {Form::Plain, true});
    EXPECT_TRUE(m_viewer.window.SaveAs());
    EXPECT_EQ(m_scratch.Read("out.file"), ToolTest::InFile(ToolTest::FullPlain()));
    TargetIs("packed.file", {Form::Compressed, true});
    EXPECT_TRUE(m_viewer.window.SaveAs());
    EXPECT_EQ(m_scratch.Read("packed.file"),
              ToolTest::InFile(report.GetCompressedBinaryRepresentationAsQByteArray(-1)));
    // From then on it is that file, in that form.
    EXPECT_TEXT(m_viewer.window.windowTitle(), "packed.file[*] - reportviewer");
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_EQ(
        m_scratch.Read("packed.file"),
        ToolTest::InFile(m_viewer.window.Model().Report().GetCompressedBinaryRepresentationAsQByteArray(-1)));
}

TEST_F(ViewerSaving, AChangedReportIsSavedToItsOwnFileWithoutAQuestion)
{
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_FALSE(IsModified());
    EXPECT_TRUE(m_scratch.Read("report.xml").contains("<Name>changed</Name>"));
    EXPECT_TRUE(m_viewer.answers->asked.isEmpty());
    m_viewer.window.ReportChanges().Stack().undo();
    EXPECT_TRUE(IsModified());
    EXPECT_EQ(m_scratch.Names(), QStringList{QStringLiteral("report.xml")});
}

TEST_F(ViewerSaving, AnotherFileIsReplacedOnlyIfThePersonWantsIt)
{
    m_scratch.Write("other", "precious");
    TargetIs("other", {Form::Plain, false});
    EXPECT_FALSE(m_viewer.window.SaveAs());
    EXPECT_EQ(m_scratch.Read("other"), QByteArray("precious"));
    EXPECT_EQ(m_viewer.answers->asked,
              QStringList({QStringLiteral("target ") + m_name,
                           QStringLiteral("replace OtherFile ") + m_scratch.Path("other"),
                           QStringLiteral("target ") + m_scratch.Path("other")}));
    m_viewer.answers->mayReplace = true;
    EXPECT_TRUE(m_viewer.window.SaveAs());
    EXPECT_EQ(m_scratch.Read("other"), ToolTest::FullPlain());
}

TEST_F(ViewerSaving, WhoRefusesToReplaceAFileNamesAnother)
{
    m_scratch.Write("other", "precious");
    TargetIs("other", {Form::Plain, false});
    m_viewer.answers->otherTarget = Questions::Target{m_scratch.Path("free"), {Form::Plain, false}};
    EXPECT_TRUE(m_viewer.window.SaveAs());
    EXPECT_EQ(m_scratch.Read("other"), QByteArray("precious"));
    EXPECT_EQ(m_scratch.Read("free"), ToolTest::FullPlain());
}

TEST_F(ViewerSaving, WhatSomebodyElseHasWrittenIsReplacedOnlyIfThePersonWantsIt)
{
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    m_scratch.Write("report.xml", "<ReportBase/>");
    EXPECT_FALSE(m_viewer.window.Save());
    EXPECT_EQ(m_scratch.Read("report.xml"), QByteArray("<ReportBase/>"));
    EXPECT_EQ(m_viewer.answers->asked.constLast(), QStringLiteral("replace ChangedFile ") + m_name);
    EXPECT_TRUE(IsModified());
    m_viewer.answers->mayReplace = true;
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_TRUE(m_scratch.Read("report.xml").contains("<Name>changed</Name>"));
}

TEST_F(ViewerSaving, WhatNoReportHoldsIsReplacedWithoutAQuestion)
{
    m_viewer.Open(m_scratch.Write(
        "commented.xml", "<?xml version=\"1.0\"?>\n<!-- first -->\n<?program?><ReportBase>\n"
                         "  <Frequency Min=\"2.00\">3.00</Frequency>\n<!-- last --></ReportBase>\n"));
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_TRUE(m_viewer.answers->asked.isEmpty())
        << m_viewer.answers->asked.join(QLatin1Char('\n')).toStdString();
    // Once it is saved, all of it has been read.
    m_viewer.answers->mayLose = true;
    m_viewer.Open(m_scratch.Write("more.xml", "<ReportBase><Colour>red</Colour></ReportBase>"));
    EXPECT_TRUE(m_viewer.window.Save());
    m_viewer.answers->asked.clear();
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_TRUE(m_viewer.answers->asked.isEmpty());
}

TEST_F(ViewerSaving, WhatIsInvalidIsNotSaved)
{
    EXPECT_TRUE(m_viewer.window.Model().Unset(m_viewer.At("area.name")));
    EXPECT_FALSE(m_viewer.window.Save());
    EXPECT_TEXT(m_viewer.Notice(),
                "Not saved: OutOfRangeException: Area: Please set Name properly. (area.name = \"\")");
    EXPECT_EQ(m_scratch.Read("report.xml"), ToolTest::FullXml());
    EXPECT_TRUE(IsModified());
}

TEST_F(ViewerSaving, WhatTheFormWouldNotKeepIsNotSaved)
{
    // XML has no such character.
    ASSERT_TRUE(m_viewer.window.Model().setData(m_viewer.At("area.scriptId"), QStringLiteral("a\x02z")));
    EXPECT_FALSE(m_viewer.window.Save());
    EXPECT_TEXT(m_viewer.Notice(), "Not saved: this form would not keep the script identifier of the area");
    EXPECT_EQ(m_scratch.Read("report.xml"), ToolTest::FullXml());
    TargetIs("out", {Form::Plain, false});
    EXPECT_TRUE(m_viewer.window.SaveAs());
    EXPECT_TEXT(m_viewer.Notice(), "");
}

TEST_F(ViewerSaving, AFullDeviceIsSaid)
{
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    m_viewer.answers->target = Questions::Target{QStringLiteral("/dev/full"), {Form::Xml, false}};
    m_viewer.answers->mayReplace = true;
    EXPECT_FALSE(m_viewer.window.SaveAs());
    EXPECT_TEXT(m_viewer.Notice(), "Not saved: /dev/full: No space left on device");
    EXPECT_TRUE(IsModified());
    EXPECT_TEXT(m_viewer.window.Shown().FileName(), m_name);
}

/// While it lives, no file may grow beyond so many bytes.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &m_limit), 0);
        rlimit small = m_limit;
        small.rlim_cur = bytes;
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_handler);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit m_limit{};
    void (*m_handler)(int);
};

TEST_F(ViewerSaving, ADiskThatFillsUpLeavesTheOldFileAsItWas)
{
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    {
        const SmallDisk disk(100);
        EXPECT_FALSE(m_viewer.window.Save());
    }
    EXPECT_TEXT(m_viewer.Notice(), QStringLiteral("Not saved: %1: File too large").arg(m_name));
    EXPECT_EQ(m_scratch.Read("report.xml"), ToolTest::FullXml());
    EXPECT_EQ(m_scratch.Names(), QStringList{QStringLiteral("report.xml")});
    EXPECT_TRUE(IsModified());
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_FALSE(IsModified());
}

/// Somebody who may not write everywhere, even where the tests run as the system's administrator.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
        constexpr uid_t NOBODY = 65534;
        if (m_user == 0) {
            EXPECT_EQ(seteuid(NOBODY), 0);
        }
    }
    ~OrdinaryUser()
    {
        if (m_user == 0) {
            EXPECT_EQ(seteuid(m_user), 0);
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    const uid_t m_user = geteuid();
};

TEST_F(ViewerSaving, AFolderThatIsReadOnlyIsSaid)
{
    const auto readable = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    const QString folder = m_scratch.Path("read-only");
    ASSERT_TRUE(QDir().mkdir(folder));
    ASSERT_TRUE(QFile::setPermissions(folder, readable));
    ASSERT_TRUE(QFile::setPermissions(m_scratch.Folder(), readable | QFile::WriteOwner));
    TargetIs("read-only/out.xml", {Form::Xml, false});
    {
        const OrdinaryUser user;
        EXPECT_FALSE(m_viewer.window.SaveAs());
    }
    EXPECT_TEXT(m_viewer.Notice(),
                QStringLiteral("Not saved: %1: Permission denied").arg(m_scratch.Path("read-only/out.xml")));
    EXPECT_TRUE(QDir(folder).isEmpty());
    EXPECT_TEXT(m_viewer.window.Shown().FileName(), m_name);
}

TEST_F(ViewerSaving, AFolderThatIsNotThereIsSaid)
{
    TargetIs("missing/out.xml", {Form::Xml, false});
    EXPECT_FALSE(m_viewer.window.SaveAs());
    EXPECT_TEXT(
        m_viewer.Notice(),
        QStringLiteral("Not saved: %1: No such file or directory").arg(m_scratch.Path("missing/out.xml")));
}

TEST_F(ViewerSaving, AReportWithoutFileAsksForOne)
{
    m_viewer.window.New();
    EXPECT_FALSE(m_viewer.window.Save());
    EXPECT_EQ(m_viewer.answers->asked, QStringList{QStringLiteral("target report.xml")});
}

/// A file is on its way to the window, and there whenever a question has been answered.
class ViewerSavingWhileAnotherFileIsLoaded : public ViewerSaving
{
protected:
    ViewerSavingWhileAnotherFileIsLoaded()
    {
        EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
        m_viewer.answers->changes = Questions::Changes::Discard;
        m_viewer.window.Open(m_scratch.Write("other.xml", OTHER));
        EXPECT_TRUE(m_viewer.window.Shown().IsLoading());
        m_viewer.answers->mayReplace = true;
        m_viewer.answers->meanwhile = [this] {
            EXPECT_TRUE(ViewerTest::WaitFor([this] { return !m_viewer.window.Shown().IsLoading(); }));
        };
    }

    void ExpectSavedAs(const char* name)
    {
        EXPECT_TEXT(m_viewer.window.Shown().FileName(), m_scratch.Path(name));
        EXPECT_TEXT(m_viewer.Value("area.name"), "changed");
        EXPECT_TRUE(m_scratch.Read(name).contains("<Name>changed</Name>"));
        EXPECT_EQ(m_scratch.Read("other.xml"), QByteArray(OTHER));
        EXPECT_FALSE(IsModified());
        EXPECT_FALSE(m_viewer.Find<QWidget>("cancel")->isVisible());
    }

    static constexpr char OTHER[] = "<ReportBase><Frequency>1.00</Frequency></ReportBase>";
};

TEST_F(ViewerSavingWhileAnotherFileIsLoaded, SavingWritesTheReportThatIsShown)
{
    m_scratch.Write("report.xml", "<ReportBase/>");
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_EQ(m_viewer.answers->asked.constLast(), QStringLiteral("replace ChangedFile ") + m_name);
    ExpectSavedAs("report.xml");
}

TEST_F(ViewerSavingWhileAnotherFileIsLoaded, SavingElsewhereWritesTheReportThatIsShown)
{
    TargetIs("out.xml", {Form::Xml, false});
    EXPECT_TRUE(m_viewer.window.SaveAs());
    ExpectSavedAs("out.xml");
}

TEST_F(ViewerSavingWhileAnotherFileIsLoaded, LeavingSavesTheReportThatIsShown)
{
    m_viewer.answers->changes = Questions::Changes::Save;
    m_viewer.window.New();
    EXPECT_TRUE(m_scratch.Read("report.xml").contains("<Name>changed</Name>"));
    EXPECT_EQ(m_scratch.Read("other.xml"), QByteArray(OTHER));
    EXPECT_TEXT(m_viewer.window.Shown().FileName(), "");
    m_viewer.answers->meanwhile = nullptr;
}

/// A value is being typed and not finished yet.
class ViewerSavingWhileTyping : public ViewerSaving
{
protected:
    void TypeInto(const char* path, const char* text)
    {
        m_viewer.window.Tree().setFocus();
        m_viewer.window.Tree().setCurrentIndex(m_viewer.At(path));
        m_viewer.Press(Qt::Key_F2);
        m_viewer.Type(text);
    }
};

TEST_F(ViewerSavingWhileTyping, WhatIsTypedIsSaved)
{
    TypeInto("area.name", "typed");
    m_viewer.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(m_scratch.Read("report.xml").contains("<Name>typed</Name>"));
    EXPECT_TEXT(m_viewer.Value("area.name"), "typed");
    EXPECT_FALSE(IsModified());
}

TEST_F(ViewerSavingWhileTyping, WhatIsTypedIsSavedElsewhere)
{
    TypeInto("area.name", "typed");
    TargetIs("out.xml", {Form::Xml, false});
    m_viewer.Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(m_scratch.Read("out.xml").contains("<Name>typed</Name>"));
}

TEST_F(ViewerSavingWhileTyping, LeavingAsksAboutWhatIsTyped)
{
    TypeInto("area.name", "typed");
    EXPECT_FALSE(m_viewer.window.close());
    EXPECT_EQ(m_viewer.answers->asked, QStringList{QStringLiteral("changes ") + m_name});
    EXPECT_TEXT(m_viewer.Value("area.name"), "typed");
    m_viewer.answers->changes = Questions::Changes::Discard;
}

TEST_F(ViewerSavingWhileTyping, WhatIsRefusedIsNotSavedAndCanBeTypedOn)
{
    TypeInto("area.coordinate[1].latitude", "91");
    m_viewer.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(m_viewer.Notice().startsWith(QStringLiteral("area.coordinate[1].latitude: ")))
        << m_viewer.Notice().toStdString();
    EXPECT_FALSE(m_viewer.window.SaveAs());
    EXPECT_FALSE(m_viewer.window.close());
    EXPECT_TRUE(m_viewer.answers->asked.isEmpty());
    EXPECT_EQ(m_scratch.Read("report.xml"), ToolTest::FullXml());
    m_viewer.Press(Qt::Key_Backspace);
    m_viewer.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TEXT(m_viewer.Value("area.coordinate[1].latitude"), "9");
    EXPECT_TRUE(m_scratch.Read("report.xml").contains("<Latitude>9.000000</Latitude>"));
}

TEST_F(ViewerSaving, LeavingMaySave)
{
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    m_viewer.answers->changes = Questions::Changes::Save;
    EXPECT_TRUE(m_viewer.window.close());
    EXPECT_TRUE(m_scratch.Read("report.xml").contains("<Name>changed</Name>"));
}

TEST_F(ViewerSaving, LeavingStaysWhereSavingFails)
{
    EXPECT_TRUE(m_viewer.window.Model().Unset(m_viewer.At("area.name")));
    m_viewer.answers->changes = Questions::Changes::Save;
    EXPECT_FALSE(m_viewer.window.close());
    EXPECT_TRUE(m_viewer.window.isVisible());
    m_viewer.answers->changes = Questions::Changes::Discard;
}

} // namespace
