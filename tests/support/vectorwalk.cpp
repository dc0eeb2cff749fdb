#include "support/vectorwalk.h"

#include "support/vectors.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <utility>

namespace Support {
namespace {

/// What is done to each byte; a truncation is one more.
constexpr int CHANGES = 6;

QByteArray Changed(const QByteArray& bytes, int place, int change)
{
    QByteArray changed = bytes;
    if (change == CHANGES) {
        changed.truncate(place);
        return changed;
    }
    const char old = bytes.at(place);
    const std::array<char, CHANGES> values = {
        static_cast<char>(old ^ 1), static_cast<char>(old ^ '\x80'), '\0', '\xff', '<', '&'};
    changed[place] = values.at(static_cast<std::size_t>(change));
    return changed;
}

QByteArray Serialised(const QByteArray& bytes)
{
    QByteArray serialised;
    QDataStream stream(&serialised, QIODevice::WriteOnly);
    stream << bytes;
    return serialised;
}

/// Marker, object name, root tag and root length, if the sizes of the first two are what they were.
int HeaderSize(Kind kind)
{
    constexpr int WORD = 4;
    constexpr int MARKER = 18;
    return WORD + MARKER + WORD + 2 * static_cast<int>(NameOf(kind).size()) + 2 * WORD;
}

bool FormsOf(const QString& path, std::vector<Form>& forms)
{
    if (path.endsWith(QLatin1String(".xml")))
        forms = {Form::XmlString, Form::Reader, Form::XmlFile, Form::Converter, Form::Notifier};
    else if (path.endsWith(QLatin1String(".raw.hex")))
        forms = {Form::Raw};
    else if (path.endsWith(QLatin1String(".zhex")))
        forms = {Form::CompressedArray, Form::CompressedStream, Form::BinaryFile};
    else if (path.endsWith(QLatin1String(".hex")))
        forms = {Form::PlainArray, Form::PlainStream, Form::BinaryFile, Form::Body};
    else
        return false;
    return true;
}

std::string DifferenceIn(const VectorInput& vector, const QByteArray& bytes, quint64 number)
{
    Choices choices(number);
    const Form form = choices.Of(vector.forms);
    return ReadingDifference(form, vector.kind, InputFor(form, vector.kind, bytes),
                             Trip::OfSeed(choices.Word()));
}

} // namespace

std::vector<VectorInput> VectorInputs()
{
    std::vector<VectorInput> inputs;
    for (const QString& path : VectorFiles()) {
        VectorInput input;
        if (!KindOfFolder(path.section(QLatin1Char('/'), 0, 0), input.kind) || !FormsOf(path, input.forms))
            continue;
        input.path = path.toStdString();
        input.bytes =
            path.endsWith(QLatin1String(".xml")) ? LoadXmlVector(path).toUtf8() : LoadVector(path).Data();
        inputs.push_back(std::move(input));
    }
    return inputs;
}

Input InputFor(Form form, Kind kind, const QByteArray& bytes)
{
    Input input;
    input.bytes = form == Form::BinaryFile ? Serialised(bytes)
                  : form == Form::Body     ? bytes.mid(HeaderSize(kind))
                                           : bytes;
    input.text = QString::fromUtf8(bytes);
    input.length = static_cast<int>(input.bytes.size());
    return input;
}

Walk WalkVectors(int every)
{
    Walk walk;
    quint64 number = 0;
    for (const VectorInput& vector : VectorInputs()) {
        for (int place = 0; place < vector.bytes.size(); ++place) {
            for (int change = 0; change <= CHANGES; ++change) {
                ++number;
                if (Choices(number).Below(every) != 0)
                    continue;
                ++walk.cases;
                walk.difference = DifferenceIn(vector, Changed(vector.bytes, place, change), number);
                if (walk.difference.empty())
                    continue;
                walk.difference +=
                    vector.path + ", byte " + std::to_string(place) + ", change " + std::to_string(change);
                return walk;
            }
        }
    }
    return walk;
}

} // namespace Support
