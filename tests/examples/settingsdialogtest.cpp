#include <settings-dialog/settingsdialog.h>

#include <gmock/gmock.h>

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextBlock>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

#include <string>
#include <vector>

namespace {

constexpr const char* SCAN = "<ScanParameter><FrequencyRange><StartFrequency>100</StartFrequency>"
                             "<StopFrequency>200.5</StopFrequency></FrequencyRange>"
                             "<FrequencyStep>12.25</FrequencyStep></ScanParameter>";
constexpr const char* SPACING = "<ChannelSpacing><Visual>Air band</Visual><Samedistance>false</Samedistance>"
                                "<Value>2.5</Value><Value>8333.33</Value></ChannelSpacing>";
constexpr const char* ELLIPSE = "<Ellipse><MinRadius>100</MinRadius><MaxRadius>250.5</MaxRadius>"
                                "<Rotation>30</Rotation></Ellipse>";
constexpr const char* ELLIPSE_WITHOUT_ROTATION =
    "<Ellipse><MinRadius>1</MinRadius><MaxRadius>2</MaxRadius></Ellipse>";
constexpr const char* MALFORMED_ELLIPSE = "<Ellipse><MinRadius>1</Ellipse>";

using Texts = std::vector<std::string>;

const Texts NO_SCAN = {"", "", "", "", ""};
const Texts NO_SPACING = {"", "", ""};
const Texts NO_ELLIPSE = {"", "", ""};

/// The dialog as a user sees it.
class SettingsDialogTest : public testing::Test
{
protected:
    template <class Widget>
    Widget* Find(const char* name) const
    {
        auto* widget = m_dialog.findChild<Widget*>(QString::fromUtf8(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    QPlainTextEdit* Pane() const { return Find<QPlainTextEdit>("fragment"); }
    QPushButton* RestoreButton() const { return Find<QPushButton>("restore"); }
    std::string PaneText() const { return Pane()->toPlainText().toStdString(); }
    QPlainTextEdit* MessagePane() const { return Find<QPlainTextEdit>("message"); }
    std::string Message() const { return MessagePane()->toPlainText().toStdString(); }
    std::string LastGoodFragment() const { return m_dialog.GetLastGoodFragment().toStdString(); }

    void Apply(const std::string& fragment)
    {
        Pane()->setPlainText(QString::fromStdString(fragment));
        Find<QPushButton>("apply")->click();
    }

    Texts Values(std::initializer_list<const char*> fields) const
    {
        Texts texts;
        for (const char* field : fields)
            texts.push_back(Find<QLineEdit>(field)->text().toStdString());
        return texts;
    }

    Texts Scan() const
    {
        return Values({"ScanParameter.StartFrequency", "ScanParameter.StopFrequency",
                       "ScanParameter.FrequencyStep", "ScanParameter.DwellTime", "ScanParameter.HoldTime"});
    }

    Texts Spacing() const
    {
        return Values({"ChannelSpacing.Visual", "ChannelSpacing.Samedistance", "ChannelSpacing.Value"});
    }

    Texts EllipseValues() const
    {
        return Values({"Ellipse.MinRadius", "Ellipse.MaxRadius", "Ellipse.Rotation"});
    }

    /// The lines of the log pane without their times.
    Texts Log() const
    {
        const QString separator = QStringLiteral(" - ");
        Texts texts;
        const QString log = Find<QPlainTextEdit>("log")->toPlainText();
        for (const QString& line : log.split(QLatin1Char('\n')))
            texts.push_back(line.mid(line.indexOf(separator) + separator.size()).toStdString());
        return texts;
    }

    SettingsDialog m_dialog;
};

std::string All()
{
    return std::string(SCAN) + "\n" + SPACING + "\n" + ELLIPSE;
}

std::string ReaderError(const char* xml)
{
    QXmlStreamReader reader(QString::fromUtf8(xml));
    while (!reader.atEnd())
        reader.readNext();
    EXPECT_TRUE(reader.hasError()) << xml;
    return reader.errorString().toStdString();
}

TEST_F(SettingsDialogTest, StartsWithEmptyFormsAndNothingToRestore)
{
    EXPECT_EQ(Scan(), NO_SCAN);
    EXPECT_EQ(Spacing(), NO_SPACING);
    EXPECT_EQ(EllipseValues(), NO_ELLIPSE);
    EXPECT_EQ(Message(), "");
    EXPECT_FALSE(RestoreButton()->isEnabled());
    EXPECT_TRUE(m_dialog.GetLastGoodFragment().isNull());
}

TEST_F(SettingsDialogTest, FormsShowWhatTheObjectsHaveTaken)
{
    Apply(All());
    EXPECT_EQ(Scan(), (Texts{"100.00", "200.50", "12.25", "", ""}));
    EXPECT_EQ(Spacing(), (Texts{"Air band", "no", "2.50; 8333.33"}));
    EXPECT_EQ(EllipseValues(), (Texts{"100.00", "250.50", "30.00"}));
    EXPECT_EQ(Message(), "Applied: ScanParameter, ChannelSpacing, Ellipse");
}

TEST_F(SettingsDialogTest, LogPaneShowsEachLineOnceInTheOrderOfTheObjects)
{
    const Texts lines = {"INFO: ScanParameter: Loading xml string.",
                         "INFO: ChannelSpacing: Loading xml string.", "INFO: Ellipse: Loading xml string."};
    Apply(All());
    EXPECT_EQ(Log(), lines);

    Texts twice = lines;
    twice.insert(twice.end(), lines.begin(), lines.end());
    Apply(All());
    EXPECT_EQ(Log(), twice);
}

TEST_F(SettingsDialogTest, KeepsAFragmentThatWasAppliedWithoutProblem)
{
    Apply(All());
    EXPECT_EQ(LastGoodFragment(), All());
    EXPECT_TRUE(RestoreButton()->isEnabled());
}

TEST_F(SettingsDialogTest, TellsWhichObjectsAFragmentLeavesEmpty)
{
    Apply(All());
    Apply(ELLIPSE);
    EXPECT_EQ(Scan(), NO_SCAN);
    EXPECT_EQ(Spacing(), NO_SPACING);
    EXPECT_EQ(EllipseValues(), (Texts{"100.00", "250.50", "30.00"}));
    EXPECT_EQ(Message(), "Applied: Ellipse\nNow empty: ScanParameter, ChannelSpacing");
    EXPECT_EQ(LastGoodFragment(), ELLIPSE);
}

TEST_F(SettingsDialogTest, TellsWhichElementsNobodyTook)
{
    Apply(All() + "<Elipse/>" + ELLIPSE);
    EXPECT_EQ(Message(), "Applied: ScanParameter, ChannelSpacing, Ellipse\nNobody took: Elipse, Ellipse");
}

TEST_F(SettingsDialogTest, FindsSettingsInsideOtherElements)
{
    Apply("<Settings>" + All() + "</Settings>");
    EXPECT_EQ(Message(), "Applied: ScanParameter, ChannelSpacing, Ellipse");
}

TEST_F(SettingsDialogTest, IncompleteSettingsAreToldLoggedAndNotKeptInPart)
{
    Apply(std::string(SCAN) + ELLIPSE_WITHOUT_ROTATION);
    EXPECT_EQ(Message(),
              "Ellipse: Please set Rotation!\nApplied: ScanParameter\nNow empty: ChannelSpacing, Ellipse");
    EXPECT_EQ(Log(), (Texts{"INFO: ScanParameter: Loading xml string.",
                            "INFO: ChannelSpacing: Loading xml string.", "INFO: Ellipse: Loading xml string.",
                            "ERROR: RGException: Ellipse: Please set Rotation!"}));
    EXPECT_EQ(EllipseValues(), NO_ELLIPSE);
    EXPECT_EQ(Scan(), (Texts{"100.00", "200.50", "12.25", "", ""}));
}

TEST_F(SettingsDialogTest, AFragmentWithAProblemDoesNotReplaceTheLastGoodOne)
{
    const std::string bad = std::string(SCAN) + ELLIPSE_WITHOUT_ROTATION;
    Apply(All());
    Apply(bad);
    EXPECT_EQ(LastGoodFragment(), All());
    EXPECT_EQ(PaneText(), bad);
    EXPECT_TRUE(RestoreButton()->isEnabled());
}

TEST_F(SettingsDialogTest, AProblemAtTheStartLeavesNothingToRestore)
{
    Apply(ELLIPSE_WITHOUT_ROTATION);
    EXPECT_TRUE(m_dialog.GetLastGoodFragment().isNull());
    EXPECT_FALSE(RestoreButton()->isEnabled());
}

TEST_F(SettingsDialogTest, RestoreBringsTheLastGoodFragmentBackIntoPaneAndObjects)
{
    Apply(All());
    Apply(ELLIPSE_WITHOUT_ROTATION);
    ASSERT_EQ(Scan(), NO_SCAN);

    RestoreButton()->click();
    EXPECT_EQ(PaneText(), All());
    EXPECT_EQ(Scan(), (Texts{"100.00", "200.50", "12.25", "", ""}));
    EXPECT_EQ(Spacing(), (Texts{"Air band", "no", "2.50; 8333.33"}));
    EXPECT_EQ(EllipseValues(), (Texts{"100.00", "250.50", "30.00"}));
    EXPECT_EQ(Message(), "Applied: ScanParameter, ChannelSpacing, Ellipse");
}

TEST_F(SettingsDialogTest, UndoBringsBackTheTextThatRestoreReplaced)
{
    Apply(All());
    Apply(ELLIPSE_WITHOUT_ROTATION);
    RestoreButton()->click();
    Pane()->undo();
    EXPECT_EQ(PaneText(), ELLIPSE_WITHOUT_ROTATION);
}

TEST_F(SettingsDialogTest, TellsThatNoObjectAcceptsAFragment)
{
    const struct
    {
        const char* fragment;
        const char* ignored;
    } rows[] = {
        {"", ""},
        {"  \n", ""},
        {"nonsense", "Nobody took: \"nonsense\"\n"},
        {"<Frequency>1</Frequency>", "Nobody took: Frequency\n"},
        {"<Elipse><Rotation>1</Rotation></Elipse>", "Nobody took: Elipse\n"},
    };
    for (const auto& [fragment, ignored] : rows) {
        Apply(All());
        Apply(fragment);
        EXPECT_EQ(Message(), std::string("Invalid XML-Fragment!\n") + ignored +
                                 "Now empty: ScanParameter, ChannelSpacing, Ellipse")
            << fragment;
        EXPECT_EQ(Scan(), NO_SCAN) << fragment;
        EXPECT_EQ(Spacing(), NO_SPACING) << fragment;
        EXPECT_EQ(EllipseValues(), NO_ELLIPSE) << fragment;
        EXPECT_EQ(LastGoodFragment(), All()) << fragment;
    }
}

TEST_F(SettingsDialogTest, MalformedXmlIsToldAndLoggedOnce)
{
    const std::string error = ReaderError(MALFORMED_ELLIPSE);
    Apply(MALFORMED_ELLIPSE);
    EXPECT_EQ(Message(),
              "Invalid XML-Fragment!\n" + error + "\nNow empty: ScanParameter, ChannelSpacing, Ellipse");
    EXPECT_EQ(Log(),
              (Texts{"INFO: ScanParameter: Loading xml string.", "INFO: ChannelSpacing: Loading xml string.",
                     "INFO: Ellipse: Loading xml string.", "FATAL ERROR: RGException: " + error}));
}

TEST_F(SettingsDialogTest, AnUnknownElementInAnObjectIsTold)
{
    Apply(std::string("<ScanParameter><Step>1</Step></ScanParameter>") + ELLIPSE);
    EXPECT_EQ(
        Message(),
        "Unknown Tag 'Step' in 'ScanParameter'.\nApplied: Ellipse\nNow empty: ScanParameter, ChannelSpacing");
}

TEST_F(SettingsDialogTest, AFragmentThatIsMalformedBehindTheSettingsIsNotGood)
{
    Apply(std::string(ELLIPSE) + "<Ellipse></Elipse>");
    EXPECT_EQ(EllipseValues(), (Texts{"100.00", "250.50", "30.00"}));
    EXPECT_EQ(Message(), ReaderError("<Ellipse></Elipse>") +
                             "\nApplied: Ellipse\nNow empty: ScanParameter, ChannelSpacing");
    EXPECT_TRUE(m_dialog.GetLastGoodFragment().isNull());
}

TEST_F(SettingsDialogTest, AFragmentThatOnlyEmptiesTheObjectsIsNotGood)
{
    Apply(All());
    Apply("<Ellipse></Ellipse>");
    EXPECT_EQ(Message(),
              "The fragment holds no settings.\nNow empty: ScanParameter, ChannelSpacing, Ellipse");
    EXPECT_EQ(LastGoodFragment(), All());
}

TEST_F(SettingsDialogTest, MarkupInAMessageIsShownAsItStands)
{
    Apply(std::string(ELLIPSE) + "&lt;b&gt;bold&lt;/b&gt; &amp;amp;");
    EXPECT_EQ(Message(), "Applied: Ellipse\nNobody took: \"<b>bold</b> &amp;\"\n"
                         "Now empty: ScanParameter, ChannelSpacing");
}

TEST_F(SettingsDialogTest, ATagThatIsNotEndedIsToldWithItsReason)
{
    Apply("<a");
    EXPECT_EQ(Message(), "Invalid XML-Fragment!\n" + ReaderError("<Fragment><a</Fragment>") +
                             "\nNow empty: ScanParameter, ChannelSpacing, Ellipse");
    EXPECT_EQ(PaneText(), "<a");
    EXPECT_FALSE(RestoreButton()->isEnabled());
}

TEST_F(SettingsDialogTest, AGoodFragmentAfterAProblemIsAppliedAndTheProblemIsGone)
{
    Apply(MALFORMED_ELLIPSE);
    Apply(All());
    EXPECT_EQ(Message(), "Applied: ScanParameter, ChannelSpacing, Ellipse");
    EXPECT_EQ(EllipseValues(), (Texts{"100.00", "250.50", "30.00"}));
    EXPECT_EQ(LastGoodFragment(), All());
}

TEST_F(SettingsDialogTest, ProblemsStandOutFromRemarks)
{
    const auto colorOfLine = [this](int line) {
        const QTextBlock block = MessagePane()->document()->findBlockByNumber(line);
        return block.begin().fragment().charFormat().foreground();
    };
    Apply(std::string(SCAN) + ELLIPSE_WITHOUT_ROTATION);
    EXPECT_NE(colorOfLine(0).style(), Qt::NoBrush);
    EXPECT_EQ(colorOfLine(1).style(), Qt::NoBrush);
    Apply(All());
    EXPECT_EQ(colorOfLine(0).style(), Qt::NoBrush);
}

TEST_F(SettingsDialogTest, ALongMessageTakesNoRoomFromTheFragment)
{
    m_dialog.show();
    QCoreApplication::sendPostedEvents();
    const QSize dialogSize = m_dialog.size();
    const QSize paneSize = Pane()->size();

    std::string fragment = ELLIPSE;
    for (int i = 0; i < 25; ++i)
        fragment += "<Unknown" + std::to_string(i) + "/>";
    Apply(fragment);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(m_dialog.size(), dialogSize);
    EXPECT_EQ(Pane()->size(), paneSize);
    EXPECT_NE(Message().find("Nobody took: Unknown0, Unknown1, "), std::string::npos);
    EXPECT_NE(Message().find(", Unknown19 and 5 more\n"), std::string::npos);
    EXPECT_EQ(Message().find("Unknown20"), std::string::npos);
}

TEST_F(SettingsDialogTest, TellsWhichValuesWereNotKeptAsGiven)
{
    Apply("<Ellipse unit=\"m\"><MinRadius>12,5</MinRadius><MaxRadius>7</MaxRadius><MaxRadius>8</MaxRadius>"
          "<Rotation>9.126</Rotation></Ellipse>");
    EXPECT_EQ(EllipseValues(), (Texts{"0.00", "8.00", "9.13"}));
    EXPECT_EQ(Message(), "Applied: Ellipse\n"
                         "Not kept as given: Ellipse@unit \"m\", Ellipse.MinRadius \"12,5\", "
                         "Ellipse.MaxRadius \"7\"\n"
                         "Now empty: ScanParameter, ChannelSpacing");
}

TEST_F(SettingsDialogTest, ComparingValuesLeavesNoLineInTheLog)
{
    Apply(ELLIPSE);
    EXPECT_EQ(Log(),
              (Texts{"INFO: ScanParameter: Loading xml string.", "INFO: ChannelSpacing: Loading xml string.",
                     "INFO: Ellipse: Loading xml string."}));
}

TEST_F(SettingsDialogTest, NoBreakSpacesReachTheObjects)
{
    const std::string name = "Air\xc2\xa0"
                             "band";
    Apply("<ChannelSpacing><Visual>" + name +
          "</Visual><Samedistance>true</Samedistance><Value>1</Value></ChannelSpacing>");
    EXPECT_EQ(Spacing(), (Texts{name, "yes", "1.00"}));
    RestoreButton()->click();
    EXPECT_EQ(Spacing(), (Texts{name, "yes", "1.00"}));
}

TEST_F(SettingsDialogTest, LongTextsAreShownWholeAndFromTheirStart)
{
    const std::string name(100000, 'x');
    Apply("<ChannelSpacing><Visual>" + name +
          "</Visual><Samedistance>true</Samedistance><Value>1</Value></ChannelSpacing>");
    EXPECT_TRUE(Spacing().front() == name);
    EXPECT_EQ(Find<QLineEdit>("ChannelSpacing.Visual")->cursorPosition(), 0);
}

TEST_F(SettingsDialogTest, ValuesBeyondTheHundredthAreCounted)
{
    const auto applyValues = [this](int count) {
        std::string values;
        for (int i = 0; i < count; ++i)
            values += "<Value>1</Value>";
        Apply("<ChannelSpacing><Samedistance>true</Samedistance>" + values + "</ChannelSpacing>");
        return Spacing().back();
    };
    std::string hundred;
    for (int i = 0; i < 100; ++i)
        hundred += i == 0 ? "1.00" : "; 1.00";
    EXPECT_EQ(applyValues(100), hundred);
    EXPECT_EQ(applyValues(101), hundred + "; ... (101 in all)");
    EXPECT_EQ(applyValues(50000), hundred + "; ... (50000 in all)");
    EXPECT_EQ(Message(), "Applied: ChannelSpacing\nNow empty: ScanParameter, Ellipse");
}

TEST_F(SettingsDialogTest, EscapeDoesNotThrowTheTextAway)
{
    m_dialog.show();
    Pane()->setPlainText(QStringLiteral("<Ellipse>"));
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(Pane(), &escape);
    EXPECT_TRUE(m_dialog.isVisible());
    EXPECT_EQ(PaneText(), "<Ellipse>");
}

TEST_F(SettingsDialogTest, HasAFormForEachOfItsThreeSettings)
{
    for (const char* name : {"ScanParameter", "ChannelSpacing", "Ellipse"})
        EXPECT_EQ(Find<QGroupBox>(name)->title().toStdString(), name);
    EXPECT_EQ(m_dialog.findChildren<QGroupBox*>().size(), 3);
}

TEST_F(SettingsDialogTest, SampleFragmentsDoWhatTheyAreNamedAfter)
{
    for (const char* name : {"settings.xml", "incomplete.xml"}) {
        QFile file(QStringLiteral(SETTINGS_DIALOG_SAMPLES "/") + QString::fromUtf8(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        Apply(file.readAll().toStdString());
        const std::string expected = std::string(name) == "settings.xml"
                                         ? "Applied: ScanParameter, ChannelSpacing, Ellipse"
                                         : "Ellipse: Please set Rotation!\nApplied: ChannelSpacing\n"
                                           "Now empty: ScanParameter, Ellipse";
        EXPECT_EQ(Message(), expected) << name;
    }
}

} // namespace
