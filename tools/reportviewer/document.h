#ifndef REPORTVIEWER_DOCUMENT_H
#define REPORTVIEWER_DOCUMENT_H

#include <reportviewer/background.h>
#include <reportviewer/contents.h>

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <QtCore/QString>

namespace ReportViewer {

/// A report file: loaded in the background, followed through changes, and saved.
class Document : public QObject
{
    Q_OBJECT

public:
    explicit Document(QObject* parent = nullptr);

    /// Begins to load a file. Whatever was being loaded before is dropped; what is shown stays until the file is there.
    void Open(const QString& name);

    /// A report with nothing in it and no file.
    void Clear();

    /// What is shown stays.
    void CancelLoading();
    bool IsLoading() const { return m_loading.IsBusy(); }

    /// The report has been changed to this one: bytes, problems and outline follow in the background.
    void Follow(const REPORTGENERATOR::ReportBase& report);

    /// The report is that of the file once more: so are bytes, problems and outline. After saving they are read in the
    /// background.
    void ShowFile();
    bool IsFollowing() const { return m_following.IsBusy(); }

    /// A report as it is written to a file.
    struct Draft
    {
        QByteArray bytes;

        /// Why there are none, in words; empty otherwise.
        QString refusal;

        /// Of the field that is to blame; empty where it isn't known.
        QString path;
    };

    static Draft Write(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form);

    /// Saves what was written. Returns why it could not be done, in words; nothing when it is done. Then the document is
    /// that of the file.
    QString Save(const QByteArray& bytes, const QString& name, const ReportCore::FileForm& form);

    /// Whether there is a file, and it is another one than was loaded or saved last.
    bool HasFileChanged() const;

    /// What of the file that was loaded is lost when this report is saved.
    ReportCore::Problems Losses(const REPORTGENERATOR::ReportBase& report) const;

    /// Empty for a report that has no file yet.
    const QString& FileName() const { return m_name; }

    /// In which it is saved unless another one is asked for.
    const ReportCore::FileForm& Form() const { return m_form; }

    /// Never null.
    const ContentsPointer& Shown() const { return m_contents; }

Q_SIGNALS:
    void Progressed(const QString& step, int percent);

    /// Another file is shown.
    void Opened();

    /// Nothing has come of the loading that was under way.
    void LoadingCancelled();

    /// The file could not be loaded; what was shown before is still there.
    void OpeningFailed(const QString& name, const QString& text);

    void Saved();

    /// Bytes, problems and outline are still those of before the last change.
    void FollowingProgressed(int percent);

    /// They stay so, and why: the form has no way to say the report.
    void FollowingFailed(const QString& text);

    /// Bytes, problems and outline are others than before, and those of the report.
    void ContentsChanged();

private:
    /// What tells whether a file has been changed by somebody else.
    struct Stamp
    {
        QDateTime time;
        qint64 size = -1;

        bool Is(const Stamp& other) const { return time == other.time && size == other.size; }
    };

    static Stamp StampOf(const QString& name);
    void ReadSaved();
    void ShowContents(const ContentsPointer& contents);
    void Show(const QString& name, const ContentsPointer& contents, const Stamp& stamp);

    Background m_loading;
    Background m_following;
    QString m_name;
    Stamp m_stamp;
    ReportCore::FileForm m_form;
    ContentsPointer m_contents;

    /// What the file says; null after saving until it has been read.
    ContentsPointer m_fileContents;
    QByteArray m_savedBytes;
    bool m_isReadingSaved = false;
};

} // namespace ReportViewer

#endif
