#ifndef TESTS_SUPPORT_PATHFORMS_H
#define TESTS_SUPPORT_PATHFORMS_H

// Every way of writing and reading that the classes offer, noted down with all that a caller can see: the
// result, the bytes, where the stream and the reader are left, what they give afterwards.
//
// What varies from call to call (settings of streams and writers, devices, what stands before and behind) is
// taken from the choices.

#include "support/choices.h"
#include "support/paths.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace Support {

// --- Writing

enum class Writing : int
{
    XmlString,
    XmlFile,
    XmlWriter,
    PlainArray,
    PlainStream,
    CompressedArray,
    CompressedStream,
    Body,
    Raw,
    Check,
    Merge
};

constexpr int WRITINGS = 11;

void Write(Writing writing, CodePath& codePath, Traveller& traveller, Choices choices);

/// The text, the plain representation and the raw form, without validation: what the object has become.
void WriteMainForms(CodePath& codePath, Traveller& traveller);

// --- Reading. `choices` decides how the input is offered.

void ReadXmlString(CodePath& codePath, Traveller& traveller, const QString& xml, bool checkRoot);
void ReadXmlFile(CodePath& codePath, Traveller& traveller, const QByteArray& file, Choices choices);
void ReadByReader(CodePath& codePath, Traveller& traveller, const QByteArray& document, Choices choices);
void ReadByReader(CodePath& codePath, Traveller& traveller, const QString& document, Choices choices);
void ReadArray(CodePath& codePath, Traveller& traveller, const QByteArray& representation);
void ReadStream(CodePath& codePath, Traveller& traveller, const QByteArray& representation, Choices choices);
void ReadBinaryFile(CodePath& codePath, Traveller& traveller, const QByteArray& file, Choices choices);

/// Loads the file with a version converter at hand, which knows the object and one of another version.
void ReadByConverter(CodePath& codePath, Traveller& traveller, const QByteArray& file, Choices choices);

/// Offers the settings to an object of each kind through a notifier.
void ReadByNotifier(CodePath& codePath, const QString& settings, bool checkRoot, Choices choices);

/// Reads the bytes as a body of `length` bytes.
void ReadBody(CodePath& codePath, Traveller& traveller, const QByteArray& bytes, int length, Choices choices);
void ReadRaw(CodePath& codePath, Traveller& traveller, const QByteArray& bytes, Choices choices);

/// Byte order and precision with which `ReadBody` and `ReadRaw` read when they are given these choices.
bool IsLittleEndian(Choices choices);
bool IsSinglePrecision(Choices choices);

/// Runs a reading with what a user may have at hand meanwhile: objects that share the record, references to
/// members, a logger that looks at the object.
void WithCompanions(CodePath& codePath, Traveller& traveller, Choices choices,
                    const std::function<void()>& read);

} // namespace Support

#endif
