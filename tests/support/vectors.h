#ifndef TESTS_SUPPORT_VECTORS_H
#define TESTS_SUPPORT_VECTORS_H

// The golden vectors of tests/vectors. Their formats are described in tests/vectors/README.md.
//
//     Vector vector = LoadVector(QStringLiteral("frequency/value_only.hex"));
//     QByteArray input = vector.Data();
//     EXPECT_BYTES(object.GetBinaryRepresentationAsQByteArray(), vector.ToBytes());
//     QString xml = LoadXmlVector(QStringLiteral("frequency/value_only.xml"));
//
// Loading holds a file to the letter of its format and throws VectorError, with file and line, when it
// departs from it: offsets that don't add up, a length that differs from the bytes nested below it, a missing
// meaning.

#include "support/bytes.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <stdexcept>
#include <string>
#include <vector>

namespace Support {

/// One field of a vector: the bytes of one meaning.
struct Field
{
    int offset = 0;
    std::string bytes;
    std::string kind;            ///< "tag", "length", "size", "count", "text", …
    bool wrongOnPurpose = false; ///< the kind is marked with "!"
    std::string meaning;         ///< what stands behind the kind
    int depth = 0;               ///< how far the meaning is indented

    /// The number that the field holds, for fields of four bytes; most significant byte first.
    unsigned Number() const;
};

struct Vector
{
    QString path;
    std::vector<Field> fields;

    QByteArray Data() const;
    Bytes ToBytes() const;
};

struct ExpectedError
{
    QString name;
    QString text;
};

class VectorError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reads the text of an annotated file; `path` is for messages only.
Vector ParseVector(const QByteArray& file, const QString& path);

/// Reads the text of an XML vector: what stands before the line feed that ends the file.
QString ParseXmlVector(const QByteArray& file, const QString& path);

/// Reads the text of an error: a line with the name, a line with the text.
ExpectedError ParseError(const QByteArray& file, const QString& path);

// Paths are relative to tests/vectors and use slashes.

Vector LoadVector(const QString& path);
QString LoadXmlVector(const QString& path);
ExpectedError LoadError(const QString& path);

/// Every file in the folders of tests/vectors, sorted; the files directly in it are left out.
QStringList VectorFiles();

} // namespace Support

#endif
