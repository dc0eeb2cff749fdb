#ifndef SETTINGS_DIALOG_FRAGMENT_H
#define SETTINGS_DIALOG_FRAGMENT_H

#include <QtCore/QStringList>

/// What is in a fragment besides the elements that the settings objects read.
struct Leftovers
{
    /// Names of the elements that hold nothing for any object; the same object's second element is one too.
    QStringList ignored;

    /// Why the fragment could not be read to its end, empty when it could.
    QString problem;
};

/// Looks through a fragment for what objects of these names leave of it. An object reads the first element of
/// its name, at any depth, and nothing behind it.
Leftovers FindLeftovers(const QString& fragment, QStringList objectNames);

#endif
