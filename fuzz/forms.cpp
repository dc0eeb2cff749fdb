// What an object writes in one form and what it writes in another hold the same: the plain and the compressed
// representation are read alike, and what was read doesn't change any more by being written and read
// again.

#include "target.h"

#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <functional>
#include <memory>

namespace {

using Support::CodePath;
using Support::Traveller;
using Support::Way;

/// A fresh object into which something was read, with what can be seen of it.
struct Reading
{
    Reading(Support::Kind kind, const std::function<bool(Traveller&)>& read)
        : codePath(Way::Direct), traveller(codePath.New(kind))
    {
        traveller->Object().SetValidate(false);
        try {
            isTaken = read(*traveller);
        } catch (const ReportException&) {
            isTaken = false;
        }
        traveller->NoteState(codePath.Transcript());
    }

    CodePath codePath;
    std::unique_ptr<Traveller> traveller;
    bool isTaken = false;
};

QByteArray RawOf(const Traveller& traveller)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    traveller.WriteRaw(stream);
    return bytes;
}

void ExpectSame(const Reading& left, const Reading& right)
{
    Fuzz::Expect(
        Support::DifferenceOf(left.codePath.Transcript().Text(), right.codePath.Transcript().Text()));
}

} // namespace

void Examine(const Fuzz::Given& given)
{
    CodePath codePath(Way::Direct);
    const Support::QtMessages messages(codePath.Transcript());
    const std::unique_ptr<Traveller> source = codePath.New(given.kind);
    Support::Choices choices(given.input);
    Support::Arrange(codePath, *source, choices);
    source->Object().SetValidate(false);

    const auto readPlain = [](const Traveller& from) {
        return [bytes = from.Object().GetBinaryRepresentationAsQByteArray()](Traveller& to) mutable {
            return to.Object().SetBinaryRepresentation(bytes);
        };
    };
    const auto readCompressed = [](const Traveller& from) {
        return [bytes = from.Object().GetCompressedBinaryRepresentationAsQByteArray(1)](
                   Traveller& to) mutable { return to.Object().SetBinaryRepresentation(bytes); };
    };
    const auto readXml = [](const Traveller& from) {
        return [xml = from.Object().GetXmlString()](Traveller& to) {
            return to.Object().SetXmlString(xml, false);
        };
    };

    const auto readRaw = [](const Traveller& from) {
        return [bytes = RawOf(from)](Traveller& to) {
            QDataStream stream(bytes);
            to.ReadRaw(stream);
            return true;
        };
    };

    const Reading plain(given.kind, readPlain(*source));
    ExpectSame(plain, Reading(given.kind, readCompressed(*source)));
    // The first reading may still leave a negative zero, of "-0.00", which is written as "0.00".
    const Reading rounded(given.kind, readPlain(*plain.traveller));
    ExpectSame(rounded, Reading(given.kind, readPlain(*rounded.traveller)));
    const Reading xml(given.kind, readXml(*source));
    if (xml.isTaken) {
        const Reading again(given.kind, readXml(*xml.traveller));
        ExpectSame(again, Reading(given.kind, readXml(*again.traveller)));
    }

    // Coordinates that are there and don't count as set are counted but not written.
    const Reading raw(given.kind, readRaw(*source));
    const Reading whole(given.kind, readRaw(*raw.traveller));
    ExpectSame(whole, Reading(given.kind, readRaw(*whole.traveller)));
}
