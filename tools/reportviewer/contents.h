#ifndef REPORTVIEWER_CONTENTS_H
#define REPORTVIEWER_CONTENTS_H

#include <reportviewer/fieldmap.h>
#include <reportviewer/outline.h>
#include <reportviewer/problemmarks.h>
#include <reportviewer/textrows.h>

#include <reportcore/problem.h>
#include <reportcore/reportfile.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <memory>

namespace ReportViewer {

/// All that the windows show of a file. It takes a while to find out, so it is done elsewhere than in the thread that
/// shows it, and not changed afterwards.
struct Contents
{
    QByteArray bytes;
    ReportCore::ReportFile file;

    /// What can be read but is hardly meant.
    ReportCore::Problems lint;

    /// What of a file would be lost if the report were saved in its place. As long as it isn't saved, that is known of the
    /// changed report, too.
    ReportCore::Problems losses;

    /// Those that no problem and no warning tells of, in words of their own.
    ReportCore::Problems listedLosses;

    /// Of all that is listed.
    ProblemMarks marks;

    /// Of XML.
    QString text;
    TextRows rows;

    /// Of a compressed form: what it holds; empty where that can't be had.
    QByteArray unpacked;

    /// Of the text, of what was unpacked, or of the bytes.
    FieldMap fields;

    Outline outline;

    bool IsText() const { return file.form.form == ReportCore::Form::Xml; }
    bool IsUnpacked() const { return !unpacked.isEmpty(); }
};

using ContentsPointer = std::shared_ptr<const Contents>;

/// Told what is being done and how much of all is done, in percent. What it throws ends the reading.
using ReadingSteps = std::function<void(const QString& step, int percent)>;

/// Reads a report and whatever there is to be said about its bytes.
ContentsPointer ReadContents(const QByteArray& bytes, const ReadingSteps& steps);

/// The same of a changed report as its file would be, whether it is good or not. `file` is what it comes from; null where
/// nothing of that is lost. Throws `RGException` where the form has no way to say the report.
ContentsPointer DraftContents(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form,
                              const ContentsPointer& file, const ReadingSteps& steps);

} // namespace ReportViewer

#endif
