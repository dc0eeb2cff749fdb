#include <reportcore/linting/linting.h>

#include <reportcore/inspect/binaryinspector.h>

#include <reportgenerator/reportbase/irgobject.h>

#include <unordered_set>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

class BinaryLint
{
public:
    BinaryLint(const QByteArray& bytes, bool isBinaryFile)
        : m_inspector(bytes, isBinaryFile, [this](const WireField& field) { Take(field); })
    {
    }

    Problems Find()
    {
        m_inspector.Envelope();
        m_inspector.Body();
        return std::move(m_problems);
    }

private:
    void Take(const WireField& field)
    {
        if (!m_inspector.IsInBody() || !field.IsOfValue() || field.IsFaulty())
            return;
        const FilePlace place = m_inspector.PlaceOf(field.begin);
        if (field.kind == Kind::Tag)
            TakeElement(*field.path, place);
        const bool isText = field.kind == Kind::Utf8 || field.kind == Kind::Utf16;
        if (isText && field.path->Last().field->Kind() == FieldKind::Number && !IsFiniteNumber(field.value))
            m_problems.push_back(NoNumber(place, *field.path, field.value));
    }

    void TakeElement(const FieldPath& path, const FilePlace& place)
    {
        if (!m_seen.insert(path).second)
            m_problems.push_back({QLatin1String(REPEATED_ELEMENT),
                                  QStringLiteral("%1 comes a second time").arg(path.Last().field->Name()),
                                  place, path.Text()});
    }

    BinaryInspector m_inspector;
    std::unordered_set<FieldPath, FieldPathHash> m_seen;
    Problems m_problems;
};

/// Whether the data hold all that they are to hold without their last bytes.
bool AreWholeWithout(qint64 count, const FileRange& data)
{
    FileRange rest = data;
    return count < data.Size() &&
           !IRGObject::UncompressBinary(rest.Take(data.Size() - count).Bytes()).isEmpty();
}

/// How many bytes could be left out. There are few, if there are any.
qint64 CountDataBehind(const FileRange& data)
{
    qint64 fewest = 0;
    qint64 tooMany = 1;
    while (AreWholeWithout(tooMany, data)) {
        fewest = tooMany;
        tooMany *= 2;
    }
    while (tooMany - fewest > 1) {
        const qint64 middle = fewest + (tooMany - fewest) / 2;
        (AreWholeWithout(middle, data) ? fewest : tooMany) = middle;
    }
    return fewest;
}

} // namespace

Problems FindDataBehind(const QByteArray& bytes, bool isBinaryFile)
{
    const FileRange data = CompressedData(bytes, isBinaryFile);
    const qint64 count = CountDataBehind(data);
    if (count == 0)
        return {};
    return {{QLatin1String(TRAILING_DATA),
             QStringLiteral("%1 bytes behind the end of the zlib data").arg(count),
             FilePlace{0, 0, data.Offset() + data.Size() - count}}};
}

Problems FindBinaryLint(const QByteArray& bytes, bool isBinaryFile)
{
    return BinaryLint(bytes, isBinaryFile).Find();
}

} // namespace ReportCore
