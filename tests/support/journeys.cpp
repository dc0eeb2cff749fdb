#include "support/journeys.h"

#include "support/composedinput.h"

namespace Support {

void Read(Form form, CodePath& codePath, Traveller& traveller, const Input& input, Choices offer)
{
    switch (form) {
    case Form::XmlString: {
        const bool checkRoot = offer.OneIn(3);
        ReadXmlString(codePath, traveller, input.text, checkRoot);
        break;
    }
    case Form::XmlFile:
        ReadXmlFile(codePath, traveller, input.bytes, offer);
        break;
    case Form::Reader:
        if (offer.Below(2) == 0)
            ReadByReader(codePath, traveller, input.text, offer);
        else
            ReadByReader(codePath, traveller, input.bytes, offer);
        break;
    case Form::PlainArray:
    case Form::CompressedArray:
        ReadArray(codePath, traveller, input.bytes);
        break;
    case Form::PlainStream:
    case Form::CompressedStream:
        ReadStream(codePath, traveller, input.bytes, offer);
        break;
    case Form::BinaryFile:
        ReadBinaryFile(codePath, traveller, input.bytes, offer);
        break;
    case Form::Body:
        ReadBody(codePath, traveller, input.bytes, input.length, offer);
        break;
    case Form::Raw:
        ReadRaw(codePath, traveller, input.bytes, offer);
        break;
    case Form::Converter:
        ReadByConverter(codePath, traveller, input.bytes, offer);
        break;
    case Form::Notifier: {
        const bool checkRoot = offer.OneIn(3);
        ReadByNotifier(codePath, input.text, checkRoot, offer);
        break;
    }
    }
}

const char* NameOf(Form form)
{
    constexpr std::array<const char*, FORMS> NAMES = {"XML string",        "XML file",     "caller's reader",
                                                      "plain array",       "plain stream", "compressed array",
                                                      "compressed stream", "binary file",  "body",
                                                      "raw form",          "converter",    "notifier"};
    return NAMES.at(static_cast<std::size_t>(form));
}

Trip Trip::OfSeed(quint64 seed)
{
    Choices choices(seed);
    const quint64 setup = choices.Word();
    return {Choices(setup), Choices(choices.Word())};
}

Input ComposeInput(Form form, Kind kind, const Trip& trip, Choices choices)
{
    Input input;
    switch (form) {
    case Form::XmlString:
    case Form::Notifier:
        input.text = ComposeXml(kind, choices);
        break;
    case Form::XmlFile:
    case Form::Converter:
    case Form::Reader:
        input.text = ComposeXml(kind, choices);
        input.bytes = ComposeXmlFile(input.text, choices);
        break;
    case Form::PlainArray:
    case Form::PlainStream:
        input.bytes = ComposeRepresentation(kind, false, choices);
        break;
    case Form::CompressedArray:
    case Form::CompressedStream:
        input.bytes = ComposeRepresentation(kind, true, choices);
        break;
    case Form::BinaryFile: {
        const bool isCompressed = choices.Below(2) == 1;
        input.bytes = ComposeBinaryFile(ComposeRepresentation(kind, isCompressed, choices), choices);
        break;
    }
    case Form::Body:
    case Form::Raw: {
        const Order order = IsLittleEndian(trip.offer) ? Order::LittleEndian : Order::BigEndian;
        input.bytes = form == Form::Body ? ComposeElements(kind, order, choices)
                                         : ComposeRaw(kind, order, IsSinglePrecision(trip.offer), choices);
        input.length = static_cast<int>(input.bytes.size());
        if (choices.OneIn(8))
            input.length += choices.Of({1, -1, 4, -4, -input.length, -2 * input.length - 1, 1000});
        break;
    }
    }
    return input;
}

std::string ReadingDifference(Form form, Kind kind, const Input& input, const Trip& trip)
{
    return Difference(kind, [&](CodePath& codePath, Traveller& traveller) {
        Choices setup = trip.setup;
        if (setup.Below(2) == 1)
            Arrange(codePath, traveller, setup);
        else
            ArrangeSettings(codePath, traveller, setup);
        const bool isReadTwice = setup.OneIn(4);
        const bool isWritten = setup.OneIn(3);
        WithCompanions(codePath, traveller, setup,
                       [&] { Read(form, codePath, traveller, input, trip.offer); });
        // Looking at an object changes what it remembers about its members.
        if (!isReadTwice || setup.Below(2) == 0)
            traveller.NoteState(codePath.Transcript());
        if (isReadTwice) {
            if (setup.Below(2) == 1)
                traveller.DisturbSettings(codePath, setup);
            Read(form, codePath, traveller, input, trip.offer);
        }
        if (isWritten)
            WriteMainForms(codePath, traveller);
    });
}

std::string WritingDifference(Kind kind, const Trip& trip)
{
    return Difference(kind, [&](CodePath& codePath, Traveller& traveller) {
        Choices setup = trip.setup;
        Choices offer = trip.offer;
        Arrange(codePath, traveller, setup);
        const bool isLookedAt = setup.Below(2) == 1;
        for (int i = setup.Below(3) + 1; i > 0; --i) {
            const auto writing = static_cast<Writing>(offer.Below(WRITINGS));
            WithCompanions(codePath, traveller, setup.Apart(),
                           [&] { Write(writing, codePath, traveller, offer.Apart()); });
            if (isLookedAt)
                traveller.NoteState(codePath.Transcript());
        }
    });
}

bool IsTaken(Form form, Kind kind, const Input& input, const Trip& trip)
{
    CodePath codePath(Way::Plain);
    const QtMessages messages(codePath.Transcript());
    const std::unique_ptr<Traveller> traveller = codePath.New(kind);
    Read(form, codePath, *traveller, input, trip.offer);
    return codePath.Transcript().Text().find("thrown: ") == std::string::npos;
}

} // namespace Support
