#ifndef TESTS_SUPPORT_JOURNEYS_H
#define TESTS_SUPPORT_JOURNEYS_H

// What tests and fuzz targets send objects through, see support/paths.h: one journey for each way of reading
// and one for writing.
//
//     const Trip trip = Trip::OfSeed(seed);
//     const Input input = ComposeInput(Form::XmlString, Kind::Area, trip, choices);
//     EXPECT_EQ(ReadingDifference(Form::XmlString, Kind::Area, input, trip), "");

#include "support/choices.h"
#include "support/pathforms.h"
#include "support/paths.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string>

namespace Support {

/// The ways of reading.
enum class Form : int
{
    XmlString,
    XmlFile,
    Reader,
    PlainArray,
    PlainStream,
    CompressedArray,
    CompressedStream,
    BinaryFile,
    Body,
    Raw,
    Converter,
    Notifier
};

constexpr int FORMS = 12;

const char* NameOf(Form form);

/// What is given to a reader: a text, or bytes and, for a body, the length that is claimed for them.
struct Input
{
    QString text;
    QByteArray bytes;
    int length = 0;
};

/// Everything about a journey but the input: how the object is set up, and how the input is offered to it.
struct Trip
{
    Choices setup;
    Choices offer;

    static Trip OfSeed(quint64 seed);
};

/// An input that mostly suits the form and the kind.
Input ComposeInput(Form form, Kind kind, const Trip& trip, Choices choices);

/// Has an object read the input as it is offered.
void Read(Form form, CodePath& codePath, Traveller& traveller, const Input& input, Choices offer);

/// Arranges an object of the kind, has it read, looks at it and writes it.
std::string ReadingDifference(Form form, Kind kind, const Input& input, const Trip& trip);

/// Arranges an object of the kind and writes it in several ways.
std::string WritingDifference(Kind kind, const Trip& trip);

/// Whether a subclass's object takes the input; it is the measure of what inputs are worth.
bool IsTaken(Form form, Kind kind, const Input& input, const Trip& trip);

} // namespace Support

#endif
