#ifndef REPORTTOOL_SETTINGSTRIAL_H
#define REPORTTOOL_SETTINGSTRIAL_H

#include <reporttool/fragment.h>

#include <QtCore/QString>

#include <vector>

namespace ReportTool {

/// What a settings object has made of the element that it found first.
struct Outcome
{
    QString object;
    const FragmentPart* element = nullptr;
    bool isTaken = false;
    QString xml;         ///< what it holds now; empty for nothing
    QString refusalName; ///< name and text of the exception by which it has refused the element
    QString refusalText;
};

struct Outcomes
{
    std::vector<Outcome> offers; ///< in the order in which the objects are registered
    std::vector<const FragmentPart*> rest;

    bool AreGood() const;
};

/// Has a notifier hand the text, of which the fragment is made, to an object of each of the library's classes. The outcomes
/// point into the fragment.
Outcomes TrySettings(const QString& text, Fragment& fragment);

} // namespace ReportTool

#endif
