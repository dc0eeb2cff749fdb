// Tells in a few lines what the library writes, so that two platforms can be compared: a digest of each form in which
// the golden objects and generated ones are written, and one of everything.
//
//     report_digest                       a line for each form: its name, SHA-256, bytes that went in
//     report_digest --count N             N generated objects instead of 10,000
//     report_digest --each FORM           a line for each object: its number, its name and the digest of that form
//     report_digest --show FORM NUMBER    what object NUMBER gives in that form
//     report_digest --fault FORM NUMBER   changes a bit of what object NUMBER gives in that form, as a platform would
//                                         that gets it wrong

#include "digest/digests.h"
#include "digest/objects.h"
#include "digest/reading.h"
#include "digest/writing.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QString>
#include <QtCore/QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <stdexcept>

namespace {

using Digest::Digests;
using Digest::Form;
using Support::Choices;

/// Digests the messages. The path of the scratch file, which differs from run to run, gets another name.
class DigestingLogger : public REPORTGENERATOR::Logger
{
public:
    explicit DigestingLogger(Digests& digests) : Logger(REPORTGENERATOR::INFO), m_digests(digests) {}

    using Logger::Trace;
    void Trace(REPORTGENERATOR::LogLevel level, const QString& text, bool fatal) override
    {
        QString message = text;
        message.replace(Support::ScratchPath(), QLatin1String("FILE"));
        m_digests.Add(Form::LogLines, QString::number(static_cast<int>(level)) +
                                          QLatin1String(fatal ? " fatal " : " ") + message);
    }
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

private:
    Digests& m_digests;
};

struct Options
{
    int count = 10000;
    bool listsEach = false;
    Form each = Form::XmlString;
    int shown = -1;
    Digest::Fault fault;
};

Form FormNamed(const char* name)
{
    Form form = Form::XmlString;
    if (!Digest::FormOfName(name, form))
        throw std::invalid_argument(std::string("no form '") + name + "'");
    return form;
}

int NumberOf(const char* text)
{
    bool isNumber = false;
    const int number = QByteArray(text).toInt(&isNumber);
    if (!isNumber || number < 0)
        throw std::invalid_argument(std::string("no number '") + text + "'");
    return number;
}

Options OptionsOf(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        const QByteArray word(argv[i]);
        if (word == "--count" && i + 1 < argc) {
            options.count = NumberOf(argv[++i]);
        } else if (word == "--each" && i + 1 < argc) {
            options.listsEach = true;
            options.each = FormNamed(argv[++i]);
        } else if (word == "--show" && i + 2 < argc) {
            options.each = FormNamed(argv[++i]);
            options.shown = NumberOf(argv[++i]);
        } else if (word == "--fault" && i + 2 < argc) {
            options.fault.form = FormNamed(argv[++i]);
            options.fault.object = NumberOf(argv[++i]);
        } else {
            throw std::invalid_argument("report_digest [--count N] [--each FORM] [--show FORM NUMBER] "
                                        "[--fault FORM NUMBER]");
        }
    }
    return options;
}

void Run(Digests& digests, const Options& options)
{
    QByteArray name;
    digests.Listen([&](Form form, int object, const QByteArray& digest, const QByteArray& given) {
        if (form != options.each)
            return;
        if (options.listsEach)
            std::printf("%d %s %s\n", object, digest.constData(), name.constData());
        if (object == options.shown)
            std::fwrite(given.constData(), 1, static_cast<std::size_t>(given.size()), stdout);
    });
    digests.Inject(options.fault);

    const auto logger = std::make_shared<DigestingLogger>(digests);
    const auto digest = [&](const Digest::Specimen& specimen) {
        Digest::DigestForms(digests, specimen);
        Digest::DigestDamage(digests, specimen, Choices(static_cast<quint64>(digests.Objects())));
        digests.EndObject();
    };

    Digest::ForEachGolden([&](Digest::Golden& golden) {
        name = golden.name;
        digests.BeginObject();
        golden.specimen->Object().SetLogger(logger);
        if (golden.read)
            digests.Attempt(golden.form, [&] { return golden.read(*golden.specimen); });
        digest(*golden.specimen);
    });
    for (int i = 0; i < options.count; ++i) {
        name = "generated " + QByteArray::number(i);
        digests.BeginObject();
        const std::unique_ptr<Digest::Specimen> specimen = Digest::Generated(i);
        specimen->Object().SetLogger(logger);
        digest(*specimen);
    }
}

void Print(const Digests& digests)
{
    for (std::size_t i = 0; i < Digest::FORMS; ++i) {
        const Form form = static_cast<Form>(i);
        std::printf("%s %s %lld\n", Digest::NameOf(form), digests.Of(form).constData(),
                    static_cast<long long>(digests.Bytes(form)));
    }
    std::printf("everything %s %d\n", digests.OfEverything().constData(), digests.Objects());
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    // What Qt remarks on damaged data is no concern of the library.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    try {
        const Options options = OptionsOf(argc, argv);
        Digests digests;
        Run(digests, options);
        if (options.fault.object >= digests.Objects() || options.shown >= digests.Objects())
            throw std::invalid_argument("no object of that number");
        if (!options.listsEach && options.shown < 0)
            Print(digests);
    } catch (const RGException& exception) {
        std::fprintf(stderr, "report_digest: %s: %s\n", exception.GetErrorName().toUtf8().constData(),
                     exception.GetErrorText().toUtf8().constData());
        return EXIT_FAILURE;
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "report_digest: %s\n", exception.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
