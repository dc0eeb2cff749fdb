#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/settingsnotifier.h>
#include <wendbase/errorhandler.h>
#include <wendbase/qtrace.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <cstdlib>

using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::SettingsNotifier;

namespace {

bool Expect(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "failed: %s\n", what);
    }
    return condition;
}

/// Sends one frequency through the text form and the compressed form.
bool SendFrequency()
{
    Frequency sent;
    sent.SetValue(433920000.0);
    sent.SetMin(433000000.0);

    Frequency fromXml;
    const bool xmlAccepted = fromXml.SetXmlString(sent.GetXmlString(), true);

    QByteArray bytes = sent.GetCompressedBinaryRepresentationAsQByteArray(9);
    Frequency fromBytes;
    const bool bytesAccepted = fromBytes.SetBinaryRepresentation(bytes);

    return Expect(xmlAccepted, "the XML text is accepted") &&
           Expect(fromXml.GetValue() == 433920000.0, "the XML text carries the value") &&
           Expect(fromXml.GetMin() == 433000000.0, "the XML text carries the minimum") &&
           Expect(!fromXml.IsMaxSet(), "the XML text carries no maximum") &&
           Expect(bytesAccepted, "the bytes are accepted") &&
           Expect(fromBytes == sent, "the bytes carry the whole object");
}

/// Takes what the notifier traces: the base library comes with the report library.
bool TakeTrace()
{
    QStringList traces;
    SetTraceSink(
        [&traces](const QString& text, const QString& /*source*/, int /*line*/) { traces.append(text); });
    ErrorHandler::Instance().SetFlags(ErrorHandler::TRACE);

    auto* center = new RegisterCenter;
    center->RegisterInterface(new Ellipse);
    SettingsNotifier notifier;
    notifier.NotifyOnChanged(center);
    bool refused = false;
    try {
        notifier.SetSettings(QString::fromLatin1("<Ellipse><Step/></Ellipse>"), true);
    } catch (const InvalidXmlException&) {
        refused = true;
    }
    SetTraceSink(nullptr);

    const QString expected =
        QString::fromLatin1("SettingsNotifier::SetSettings: Unknown Tag 'Step' in 'Ellipse'.");
    return Expect(refused, "the exception reaches the program across the library's border") &&
           Expect(traces == QStringList(expected), "the sink gets the trace");
}

} // namespace

/// The first argument is the version of Qt that the program should have been built with.
int main(int argc, char** argv)
{
    const int qtMajor = argc == 2 ? std::atoi(argv[1]) : 0;
    const bool good =
        Expect(qtMajor == QT_VERSION_MAJOR, "the headers of this Qt are used") &&
        Expect(QString::fromLatin1(qVersion()).startsWith(QString::number(qtMajor)), "this Qt is loaded") &&
        SendFrequency() && TakeTrace();
    return good ? 0 : 1;
}
