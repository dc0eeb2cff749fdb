#include <reportgenerator/reportbase/frequency.h>

#include <QByteArray>
#include <QString>

#include <cstdio>

using REPORTGENERATOR::Frequency;

namespace {

bool Expect(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "failed: %s\n", what);
    }
    return condition;
}

} // namespace

/// Sends one frequency through the text form and the compressed form.
int main()
{
    Frequency sent;
    sent.SetValue(433920000.0);
    sent.SetMin(433000000.0);

    Frequency fromXml;
    const bool xmlAccepted = fromXml.SetXmlString(sent.GetXmlString(), true);

    QByteArray bytes = sent.GetCompressedBinaryRepresentationAsQByteArray(9);
    Frequency fromBytes;
    const bool bytesAccepted = fromBytes.SetBinaryRepresentation(bytes);

    const bool good = Expect(xmlAccepted, "the XML text is accepted") &&
                      Expect(fromXml.GetValue() == 433920000.0, "the XML text carries the value") &&
                      Expect(fromXml.GetMin() == 433000000.0, "the XML text carries the minimum") &&
                      Expect(!fromXml.IsMaxSet(), "the XML text carries no maximum") &&
                      Expect(bytesAccepted, "the bytes are accepted") &&
                      Expect(fromBytes == sent, "the bytes carry the whole object");
    return good ? 0 : 1;
}
