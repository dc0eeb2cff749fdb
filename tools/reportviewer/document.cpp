#include <reportviewer/document.h>

#include <reportviewer/losing.h>

#include <reportcore/files.h>
#include <reportcore/reportwriting.h>

#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QFileInfo>

#include <algorithm>
#include <optional>

namespace ReportViewer {

using ReportCore::FileForm;
using ReportCore::UnusableFile;
using REPORTGENERATOR::ReportBase;

namespace {

/// Of loading a file, in percent, when all its bytes are there.
constexpr int READ = 20;

QByteArray ReadFile(const QString& name, const Background::Steps& steps)
{
    const QString step = QStringLiteral("Reading the file");
    steps(step, 0);
    const QFileInfo info(name);
    // What is no file may never end, or never begin.
    if (info.exists() && !info.isFile() && !info.isDir())
        throw UnusableFile{name, QStringLiteral("is no file")};
    return ReportCore::ReadInput(name, [&](qint64 read, qint64 size) {
        steps(step, size > 0 ? static_cast<int>(READ * std::min(read, size) / size) : READ);
    });
}

ContentsPointer EmptyContents()
{
    return std::make_shared<Contents>();
}

/// What the check of the library has refused, with the field that it is about.
std::optional<ReportCore::Problem> CauseOf(const ReportCore::NotWritten& refused, const ReportBase& report,
                                           const FileForm& form)
{
    ReportCore::Problems problems;
    try {
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): whose settings change
        const ReportBase copy(report);
        problems = ReportCore::CheckReport(copy, ReportCore::WriteUnchecked(copy, form, -1)).problems;
    } catch (const ReportException&) {
        return std::nullopt;
    }
    const auto found =
        std::find_if(problems.begin(), problems.end(), [&](const ReportCore::Problem& problem) {
            return !problem.path.isEmpty() &&
                   refused.text == QStringLiteral("%1: %2").arg(problem.name, problem.text);
        });
    if (found == problems.end())
        return std::nullopt;
    return *found;
}

/// In which a report is written that comes from a file in this one.
FileForm FormToWrite(const FileForm& form)
{
    return form.form == ReportCore::Form::Unknown ? FileForm{ReportCore::Form::Xml, false} : form;
}

} // namespace

Document::Document(QObject* parent)
    : QObject(parent), m_form(FormToWrite({})), m_contents(EmptyContents()), m_fileContents(m_contents)
{
    connect(&m_loading, &Background::Progressed, this, &Document::Progressed);
    connect(&m_following, &Background::Progressed, this,
            [this](const QString& /*step*/, int percent) { Q_EMIT FollowingProgressed(percent); });
}

void Document::Open(const QString& name)
{
    const auto failed = [this, name](const QString& text) {
        Q_EMIT OpeningFailed(name, QStringLiteral("%1: %2").arg(name, text));
    };
    m_loading.Start(
        [this, name, failed](const Background::Steps& steps) -> Background::Outcome {
            try {
                const Stamp stamp = StampOf(name);
                const ContentsPointer contents = ReadContents(ReadFile(name, steps), steps);
                return [this, name, contents, stamp] { Show(name, contents, stamp); };
            } catch (const UnusableFile& unusable) {
                return [failed, text = unusable.text] { failed(text); };
            }
        },
        failed);
}

void Document::Clear()
{
    m_loading.Cancel();
    Show(QString(), EmptyContents(), Stamp());
}

void Document::CancelLoading()
{
    if (!IsLoading())
        return;
    m_loading.Cancel();
    Q_EMIT LoadingCancelled();
}

void Document::Show(const QString& name, const ContentsPointer& contents, const Stamp& stamp)
{
    m_following.Cancel();
    m_isReadingSaved = false;
    m_name = name;
    m_contents = contents;
    m_fileContents = contents;
    m_savedBytes.clear();
    m_stamp = stamp;
    m_form = FormToWrite(contents->file.form);
    Q_EMIT Opened();
    Q_EMIT ContentsChanged();
}

void Document::Follow(const ReportBase& report)
{
    m_isReadingSaved = false;
    m_following.Start(
        [this, form = m_form, file = m_fileContents,
         copy = ReportBase(report)](const Background::Steps& steps) -> Background::Outcome {
            const ContentsPointer contents = DraftContents(copy, form, file, steps);
            return [this, contents] { ShowContents(contents); };
        },
        [this](const QString& text) {
            // What is shown stays.
            Q_EMIT FollowingFailed(text);
        });
    // The work may have to wait for a thread.
    Q_EMIT FollowingProgressed(0);
}

void Document::ShowContents(const ContentsPointer& contents)
{
    m_contents = contents;
    Q_EMIT ContentsChanged();
}

void Document::ShowFile()
{
    if (!m_fileContents) {
        ReadSaved();
    } else if (IsFollowing() || m_contents != m_fileContents) {
        m_following.Cancel();
        ShowContents(m_fileContents);
    }
}

void Document::ReadSaved()
{
    if (m_isReadingSaved)
        return;
    m_isReadingSaved = true;
    m_following.Start(
        [this, bytes = m_savedBytes](const Background::Steps& steps) -> Background::Outcome {
            const ContentsPointer contents = ReadContents(bytes, steps);
            return [this, contents] {
                m_isReadingSaved = false;
                m_fileContents = contents;
                ShowContents(contents);
            };
        },
        [this](const QString& text) {
            m_isReadingSaved = false;
            Q_EMIT FollowingFailed(text);
        });
    Q_EMIT FollowingProgressed(0);
}

Document::Draft Document::Write(const ReportBase& report, const FileForm& form)
{
    try {
        return {ReportCore::WriteWhole(ReportBase(report), form, -1), QString(), QString()};
    } catch (const ReportCore::NotWritten& refused) {
        const std::optional<ReportCore::Problem> cause = CauseOf(refused, report, form);
        if (!cause)
            return {QByteArray(), refused.text, QString()};
        return {QByteArray(), QStringLiteral("%1 (%2)").arg(refused.text, ReportCore::FieldText(*cause)),
                cause->path};
    }
}

ReportCore::Problems Document::Losses(const ReportBase& report) const
{
    return m_fileContents ? LossesLeft(*m_fileContents, report) : ReportCore::Problems();
}

QString Document::Save(const QByteArray& bytes, const QString& name, const FileForm& form)
{
    try {
        ReportCore::WriteOutput(name, bytes);
    } catch (const UnusableFile& unusable) {
        return QStringLiteral("%1: %2").arg(unusable.file, unusable.text);
    }
    m_loading.Cancel();
    m_name = name;
    m_stamp = StampOf(name);
    m_form = form;
    m_fileContents.reset();
    m_savedBytes = bytes;
    m_isReadingSaved = false;
    Q_EMIT Saved();
    ReadSaved();
    return QString();
}

bool Document::HasFileChanged() const
{
    return !m_name.isEmpty() && QFileInfo::exists(m_name) && !StampOf(m_name).Is(m_stamp);
}

Document::Stamp Document::StampOf(const QString& name)
{
    const QFileInfo info(name);
    return {info.lastModified(), info.exists() ? info.size() : -1};
}

} // namespace ReportViewer
