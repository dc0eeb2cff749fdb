#include "settingsdialog.h"

#include "fragment.h"
#include "setting.h"
#include "settingsform.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/registercenter.h>
#include <reportgenerator/reportbase/scanparameter.h>

#include <QtCore/QXmlStreamWriter>
#include <QtGui/QColor>
#include <QtGui/QFontDatabase>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ListLogger;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::SettingsNotifier;

namespace {

// The ids under which this program files its settings.
constexpr long long SCAN_PARAMETER_ID = 1001;
constexpr long long CHANNEL_SPACING_ID = 1002;
constexpr long long ELLIPSE_ID = 1003;

// More than these are only counted.
constexpr int MOST_SHOWN_VALUES = 100;
constexpr int MOST_SHOWN_REMARKS = 20;

constexpr int MESSAGE_LINES = 6;
constexpr QRgb PROBLEM_COLOR = 0xffb00020;

QString Shown(const IRGObject& object, double value)
{
    return object.IsValid(value) ? QString::number(value, 'f', 2) : QString();
}

QString SameDistanceText(const ChannelSpacing& spacing)
{
    if (!spacing.IsValidSameDistance())
        return QString();
    return spacing.IsSameDistance() ? SettingsDialog::tr("yes") : SettingsDialog::tr("no");
}

QString ValuesText(const ChannelSpacing& spacing)
{
    const auto& values = spacing.GetValues();
    QStringList texts;
    for (const double value : values) {
        if (texts.size() == MOST_SHOWN_VALUES) {
            texts.append(SettingsDialog::tr("... (%1 in all)").arg(values.size()));
            break;
        }
        texts.append(Shown(spacing, value));
    }
    return texts.join(QStringLiteral("; "));
}

/// Adds a remark with the items, if there are any.
void AddRemark(QStringList& remarks, const QString& remark, const QStringList& items)
{
    if (items.isEmpty())
        return;
    QString text = QStringList(items.mid(0, MOST_SHOWN_REMARKS)).join(QStringLiteral(", "));
    if (items.size() > MOST_SHOWN_REMARKS)
        text += SettingsDialog::tr(" and %1 more").arg(items.size() - MOST_SHOWN_REMARKS);
    remarks.append(remark.arg(text));
}

/// What the object holds, without a line in its log.
QString XmlOf(const IRGObject& object)
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    object.GetXml(writer);
    return xml;
}

QPlainTextEdit* TextPane(const QString& name, QWidget* parent)
{
    auto* pane = new QPlainTextEdit(parent);
    pane->setObjectName(name);
    pane->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return pane;
}

} // namespace

SettingsDialog::SettingsDialog(QWidget* parent)
    : QDialog(parent), m_logger(std::make_shared<ListLogger>(REPORTGENERATOR::INFO)),
      m_fragment(TextPane(QStringLiteral("fragment"), this)), m_apply(new QPushButton(tr("&Apply"), this)),
      m_restore(new QPushButton(tr("&Restore last good"), this)), m_message(new QPlainTextEdit(this)),
      m_log(TextPane(QStringLiteral("log"), this))
{
    RegisterSettings();
    CreateWidgets();

    connect(&m_notifier, QOverload<IRGObject*>::of(&SettingsNotifier::SettingsChanged), this,
            &SettingsDialog::ShowSettings);
    connect(&m_notifier, QOverload<RegisterCenter*>::of(&SettingsNotifier::SettingsChanged), this,
            &SettingsDialog::MarkTaken);
    connect(m_apply, &QPushButton::clicked, this, &SettingsDialog::Apply);
    connect(m_restore, &QPushButton::clicked, this, &SettingsDialog::Restore);
}

void SettingsDialog::SetFragment(const QString& fragment)
{
    // Not setPlainText(), which forgets what can be undone.
    QTextCursor cursor(m_fragment->document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(fragment);
}

const QString& SettingsDialog::GetLastGoodFragment() const
{
    return m_lastGoodFragment;
}

template <class Object>
Object* SettingsDialog::Register(long long id)
{
    auto setting = std::make_unique<Setting<Object>>(id);
    setting->SetLogger(m_logger);
    Setting<Object>* object = setting.get();

    auto center = std::make_unique<RegisterCenter>();
    center->RegisterInterface(setting.release());
    m_notifier.NotifyOnChanged(center.get());
    static_cast<void>(center.release()); // The notifier owns it now.

    Entry entry;
    entry.id = id;
    entry.object = object;
    entry.taking = object;
    m_entries.push_back(entry);
    return object;
}

void SettingsDialog::RegisterSettings()
{
    const auto* scan = Register<ScanParameter>(SCAN_PARAMETER_ID);
    const auto& range = scan->GetFrequencyRange();
    m_entries.back().form = new SettingsForm(
        scan->GetObjectName(),
        {{QStringLiteral("StartFrequency"), [&range] { return Shown(range, range.GetStartFrequency()); }},
         {QStringLiteral("StopFrequency"), [&range] { return Shown(range, range.GetStopFrequency()); }},
         {QStringLiteral("FrequencyStep"), [scan] { return Shown(*scan, scan->GetStepFrequency()); }},
         {QStringLiteral("DwellTime"), [scan] { return Shown(*scan, scan->GetDwellTime()); }},
         {QStringLiteral("HoldTime"), [scan] { return Shown(*scan, scan->GetHoldTime()); }}},
        this);

    const auto* spacing = Register<ChannelSpacing>(CHANNEL_SPACING_ID);
    m_entries.back().form =
        new SettingsForm(spacing->GetObjectName(),
                         {{QStringLiteral("Visual"), [spacing] { return spacing->GetVisual(); }},
                          {QStringLiteral("Samedistance"), [spacing] { return SameDistanceText(*spacing); }},
                          {QStringLiteral("Value"), [spacing] { return ValuesText(*spacing); }}},
                         this);

    const auto* ellipse = Register<Ellipse>(ELLIPSE_ID);
    m_entries.back().form = new SettingsForm(
        ellipse->GetObjectName(),
        {{QStringLiteral("MinRadius"), [ellipse] { return Shown(*ellipse, ellipse->GetMinRadius()); }},
         {QStringLiteral("MaxRadius"), [ellipse] { return Shown(*ellipse, ellipse->GetMaxRadius()); }},
         {QStringLiteral("Rotation"), [ellipse] { return Shown(*ellipse, ellipse->GetRotation()); }}},
        this);
}

void SettingsDialog::CreateWidgets()
{
    setWindowTitle(tr("Settings"));
    m_apply->setObjectName(QStringLiteral("apply"));
    m_apply->setDefault(true);
    m_restore->setObjectName(QStringLiteral("restore"));
    m_restore->setToolTip(tr("Bring the last good fragment back and apply it"));
    m_restore->setEnabled(false);
    m_message->setObjectName(QStringLiteral("message"));
    m_message->setReadOnly(true);
    m_message->setFrameShape(QFrame::NoFrame);
    m_message->viewport()->setAutoFillBackground(false);
    m_message->setTabChangesFocus(true);
    // A long message is scrolled and takes no room from the fragment.
    m_message->document()->setDocumentMargin(0);
    m_message->setFixedHeight(MESSAGE_LINES * m_message->fontMetrics().lineSpacing());
    m_log->setReadOnly(true);
    m_log->setLineWrapMode(QPlainTextEdit::NoWrap);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_apply);
    buttons->addWidget(m_restore);
    buttons->addStretch();

    auto* entry = new QVBoxLayout;
    entry->addWidget(new QLabel(tr("XML fragment"), this));
    entry->addWidget(m_fragment, 1);
    entry->addLayout(buttons);
    entry->addWidget(m_message);

    auto* forms = new QVBoxLayout;
    for (const Entry& registered : m_entries)
        forms->addWidget(registered.form);
    forms->addStretch();

    auto* upper = new QHBoxLayout;
    upper->addLayout(entry, 3);
    upper->addLayout(forms, 2);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(upper, 3);
    layout->addWidget(new QLabel(tr("Log"), this));
    layout->addWidget(m_log, 1);
}

/// Escape would close the dialog, and what has been typed would be gone.
void SettingsDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        event->ignore();
    else
        QDialog::keyPressEvent(event);
}

void SettingsDialog::Apply()
{
    const QString fragment = GetFragment();
    QStringList objectNames;
    for (const Entry& entry : m_entries)
        objectNames.append(entry.object->GetObjectName());

    QStringList problems = Distribute(fragment);
    const Leftovers leftovers = FindLeftovers(fragment, objectNames);
    if (!leftovers.problem.isEmpty() && !problems.contains(leftovers.problem))
        problems.append(leftovers.problem);
    if (problems.isEmpty() && ObjectNames(true).isEmpty())
        problems.append(tr("The fragment holds no settings."));

    QStringList remarks;
    AddRemark(remarks, tr("Applied: %1"), ObjectNames(true));
    AddRemark(remarks, tr("Nobody took: %1"), leftovers.ignored);
    AddRemark(remarks, tr("Not kept as given: %1"), ChangedValues(fragment));
    AddRemark(remarks, tr("Now empty: %1"), ObjectNames(false));

    if (problems.isEmpty()) {
        m_lastGoodFragment = fragment;
        m_restore->setEnabled(true);
    }
    ShowMessage(problems, remarks);
    ShowLog();
}

void SettingsDialog::Restore()
{
    SetFragment(m_lastGoodFragment);
    Apply();
}

void SettingsDialog::ShowSettings(IRGObject* object)
{
    for (const Entry& entry : m_entries) {
        if (entry.object == object)
            entry.form->Refresh();
    }
}

void SettingsDialog::MarkTaken(RegisterCenter* center)
{
    for (Entry& entry : m_entries) {
        if (entry.id == center->GetInterfaceId())
            entry.isTaken = true;
    }
}

/// The text of the pane. Its own plain text would have blanks in place of no-break spaces.
QString SettingsDialog::GetFragment() const
{
    QString text = m_fragment->document()->toRawText();
    text.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
    text.replace(QChar(QChar::LineSeparator), QLatin1Char('\n'));
    return text;
}

/// Gives the fragment to all objects. Returns what went wrong, one line for each problem.
QStringList SettingsDialog::Distribute(const QString& fragment)
{
    for (Entry& entry : m_entries) {
        entry.isTaken = false;
        entry.taking->ClearProblem();
    }
    QStringList problems;
    try {
        m_notifier.SetSettings(fragment, false);
    } catch (const ReportException& exception) {
        problems.append(exception.GetErrorText());
    }
    for (const Entry& entry : m_entries) {
        const QString& problem = entry.taking->GetProblem();
        // One error in the XML stops several objects alike.
        if (!problem.isEmpty() && !problems.contains(problem))
            problems.append(problem);
        // No signal tells that an object has been reset.
        if (!entry.isTaken)
            entry.form->Refresh();
    }
    return problems;
}

QStringList SettingsDialog::ObjectNames(bool isTaken) const
{
    QStringList names;
    for (const Entry& entry : m_entries) {
        if (entry.isTaken == isTaken)
            names.append(entry.object->GetObjectName());
    }
    return names;
}

/// What the objects that have taken settings hold otherwise than the fragment.
QStringList SettingsDialog::ChangedValues(const QString& fragment) const
{
    QStringList changed;
    for (const Entry& entry : m_entries) {
        if (entry.isTaken)
            changed += FindChangedValues(fragment, entry.object->GetObjectName(), XmlOf(*entry.object));
    }
    return changed;
}

/// One line for each; problems stand out.
void SettingsDialog::ShowMessage(const QStringList& problems, const QStringList& remarks)
{
    m_message->clear();
    QTextCharFormat problemFormat;
    problemFormat.setForeground(QColor(PROBLEM_COLOR));
    QTextCursor cursor(m_message->document());
    cursor.insertText(problems.join(QLatin1Char('\n')), problemFormat);
    const bool needsBreak = !problems.isEmpty() && !remarks.isEmpty();
    cursor.insertText((needsBreak ? QStringLiteral("\n") : QString()) + remarks.join(QLatin1Char('\n')),
                      QTextCharFormat());
    m_message->moveCursor(QTextCursor::Start);
}

/// Moves the lines of the logger into the log pane.
void SettingsDialog::ShowLog()
{
    for (const QString& line : m_logger->GetLogEntryList())
        m_log->appendPlainText(line);
    m_logger->Reset(true);
}
