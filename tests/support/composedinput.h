#ifndef TESTS_SUPPORT_COMPOSEDINPUT_H
#define TESTS_SUPPORT_COMPOSEDINPUT_H

// Inputs for readers, made up by choices: the library's own form, that with some oddities in its structure,
// and either with places of it changed blindly.

#include "support/choices.h"
#include "support/paths.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace Support {

/// A document or a fragment that mostly holds an element of the kind.
QString ComposeXml(Kind kind, Choices& choices);

/// The text as a file: UTF-8 mostly, sometimes in another encoding, with a byte order mark, with CR LF.
QByteArray ComposeXmlFile(const QString& xml, Choices& choices);

enum class Order : int
{
    BigEndian,
    LittleEndian
};

/// The elements of a body of the kind.
QByteArray ComposeElements(Kind kind, Order order, Choices& choices);

/// A plain or compressed representation.
QByteArray ComposeRepresentation(Kind kind, bool compressed, Choices& choices);

/// A representation with the length of a serialised array before it.
QByteArray ComposeBinaryFile(const QByteArray& representation, Choices& choices);

/// The raw form, its numbers in eight bytes or in four.
QByteArray ComposeRaw(Kind kind, Order order, bool singlePrecision, Choices& choices);

/// The bytes with some of them changed.
QByteArray Mutated(QByteArray bytes, Choices& choices);
QString Mutated(QString text, Choices& choices);

} // namespace Support

#endif
