#include <reportcore/doubting/doubting.h>

#include <reportcore/walk.h>

#include <unordered_set>
#include <utility>

namespace ReportCore {

namespace {

class BinaryDoubts
{
public:
    BinaryDoubts(const QByteArray& bytes, bool isBinaryFile)
        : m_walk(bytes, isBinaryFile, [this](const WireField& field) { Take(field); })
    {
    }

    Problems Find()
    {
        m_walk.Frame();
        m_isInBody = true;
        m_walk.Body();
        return std::move(m_problems);
    }

private:
    void Take(const WireField& field)
    {
        if (!m_isInBody || !field.path || field.path->IsEmpty() || field.IsFaulty())
            return;
        const Field& last = *field.path->Last().field;
        const FilePlace place = {0, 0, field.bytes.Offset(), m_walk.IsCompressed()};
        if (field.kind == Kind::Tag && !last.HasObjects())
            TakeElement(*field.path, place);
        const bool isText = field.kind == Kind::Utf8 || field.kind == Kind::Utf16;
        if (!isText || last.Kind() != FieldKind::Number)
            return;
        const QString text = field.kind == Kind::Utf8 ? field.bytes.Utf8() : field.bytes.Utf16();
        if (!IsFiniteNumber(text))
            m_problems.push_back(NoNumber(place, *field.path, text));
    }

    void TakeElement(const FieldPath& path, const FilePlace& place)
    {
        if (!m_seen.insert(path).second)
            m_problems.push_back({QLatin1String(REPEATED_ELEMENT),
                                  QStringLiteral("%1 comes a second time").arg(path.Last().field->Name()),
                                  place, path.Text()});
    }

    Walk m_walk;
    bool m_isInBody = false;
    std::unordered_set<FieldPath, FieldPathHash> m_seen;
    Problems m_problems;
};

} // namespace

Problems FindBinaryDoubts(const QByteArray& bytes, bool isBinaryFile)
{
    return BinaryDoubts(bytes, isBinaryFile).Find();
}

} // namespace ReportCore
