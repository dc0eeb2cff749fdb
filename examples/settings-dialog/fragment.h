#ifndef SETTINGS_DIALOG_FRAGMENT_H
#define SETTINGS_DIALOG_FRAGMENT_H

#include <QtCore/QStringList>

/// What is in a fragment besides the elements that the settings objects read.
struct Leftovers
{
    /// Names of the elements that hold nothing for any object, and texts, in quotes, that stand in none; the
    /// same object's second element is one too.
    QStringList ignored;

    /// Why the fragment could not be read to its end, empty when it could.
    QString problem;
};

/// Looks through a fragment for what objects of these names leave of it. An object reads the first element of
/// its name, at any depth, and nothing behind it.
Leftovers FindLeftovers(const QString& fragment, QStringList objectNames);

/// The values of an object's element in a fragment that are not in `written`, the XML of the object after it
/// has read that element: a text where a number belongs, the first of two values where only one is kept, an
/// attribute or a text that the object passes over. Numbers may differ by rounding to two decimals. Each is
/// named like "Ellipse.Rotation", an attribute "Ellipse@unit", down to four levels, and followed by its text
/// in quotes.
QStringList FindChangedValues(const QString& fragment, const QString& objectName, const QString& written);

#endif
