// Makes the seeds of all targets from the golden vectors: one folder for each target.
//
//     fuzz_seeds FOLDER

#include "support/sequences.h"
#include "support/vectorwalk.h"
#include "target.h"

#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QIODevice>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Support::Choices;
using Support::Form;
using Support::Kind;
using Support::VectorInput;

constexpr char VARIANT = '\x80';

/// A fresh object that validates and has a logger; one that doesn't and hasn't; one that held something.
const std::vector<QByteArray> SETUPS = {QByteArray(Fuzz::SETUP_SIZE, '\0'), QByteArray("\0\2\2", 3),
                                        QByteArray("\1\0\0\1\1", 5)};

struct Seeds
{
    explicit Seeds(const QString& root) : folder(root) {}

    void Write(const char* target, const std::string& name, const QByteArray& data) const
    {
        const QString subfolder = QLatin1String(target);
        folder.mkpath(subfolder);
        QFile file(folder.filePath(subfolder + QLatin1Char('/') + QString::fromStdString(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            throw std::runtime_error("cannot write " + file.fileName().toStdString());
    }

    QDir folder;
};

QByteArray Header(Kind kind, bool isVariant, const QByteArray& setup)
{
    QByteArray header(Fuzz::HEADER_SIZE, '\0');
    header[0] = static_cast<char>(kind);
    if (isVariant) {
        // The remainder by the number of classes has to stay the class.
        const int classes = static_cast<int>(Support::ALL_KINDS.size());
        int first = static_cast<unsigned char>(VARIANT);
        while (first % classes != static_cast<int>(kind))
            ++first;
        header[0] = static_cast<char>(first);
    }
    return header.replace(Fuzz::KIND_SIZE + Fuzz::OFFER_SIZE, setup.size(), setup);
}

bool Suits(const VectorInput& vector, Form form)
{
    return std::find(vector.forms.begin(), vector.forms.end(), form) != vector.forms.end();
}

QByteArray Word(qint32 number)
{
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly) << number;
    return bytes;
}

void WriteOf(const Seeds& seeds, const VectorInput& vector, const std::string& name, const QByteArray& setup)
{
    const QByteArray header = Header(vector.kind, false, setup);
    const QByteArray variant = Header(vector.kind, true, setup);
    const auto inputFor = [&](Form form) { return Support::InputFor(form, vector.kind, vector.bytes).bytes; };
    if (Suits(vector, Form::XmlString)) {
        for (const char* target : {"xml_string", "xml_file", "reader", "converter", "notifier"})
            seeds.Write(target, name, header + vector.bytes);
    }
    if (Suits(vector, Form::BinaryFile))
        seeds.Write("binary_file", name, header + inputFor(Form::BinaryFile));
    if (Suits(vector, Form::PlainArray)) {
        const QByteArray body = inputFor(Form::Body);
        const auto size = static_cast<qint32>(body.size());
        seeds.Write("plain", name, header + vector.bytes);
        seeds.Write("stream", name, header + vector.bytes);
        seeds.Write("stream", name + ".body", variant + Word(size) + body);
        seeds.Write("compressed", name, header + Word(1) + Word(size) + body);
    }
    if (Suits(vector, Form::CompressedArray))
        seeds.Write("plain", name, header + vector.bytes);
    if (Suits(vector, Form::Raw))
        seeds.Write("raw", name, header + vector.bytes);
}

QByteArray Chosen(Choices& choices, int size)
{
    QByteArray bytes;
    while (bytes.size() < size)
        bytes += static_cast<char>(choices.Below(256));
    return bytes;
}

/// For targets that take choices there is nothing to be had from the vectors.
void WriteChoices(const Seeds& seeds)
{
    constexpr int OBJECTS = 60;
    constexpr int LONGEST = 200;
    constexpr int MOST_STEPS = 12;
    for (int number = 0; number < OBJECTS; ++number) {
        Choices choices(static_cast<quint64>(number));
        const QByteArray bytes = Chosen(choices, Fuzz::HEADER_SIZE + choices.Below(LONGEST));
        for (const char* target : {"writing", "composed", "forms"})
            seeds.Write(target, std::to_string(number), bytes);
        const int steps = choices.Below(MOST_STEPS) + 1;
        seeds.Write("sequences", std::to_string(number),
                    Chosen(choices, Fuzz::HEADER_SIZE + steps * Support::STEP_SIZE));
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: fuzz_seeds FOLDER\n");
        return EXIT_FAILURE;
    }
    try {
        const Seeds seeds(QString::fromLocal8Bit(argv[1]));
        for (const VectorInput& vector : Support::VectorInputs()) {
            for (std::size_t setup = 0; setup < SETUPS.size(); ++setup) {
                std::string name = vector.path + "." + std::to_string(setup);
                std::replace(name.begin(), name.end(), '/', '-');
                WriteOf(seeds, vector, name, SETUPS[setup]);
            }
        }
        WriteChoices(seeds);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "fuzz_seeds: %s\n", exception.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
