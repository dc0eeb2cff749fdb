#include <reportcore/sourcemap.h>

#include <reportcore/xmlwalk.h>

namespace ReportCore {

/// The pass through XML.
class XmlSearch
{
public:
    XmlSearch(SourceMap& map, const QByteArray& bytes)
        : m_map(map), m_walk(bytes, map.m_text, [this](const XmlPiece& piece) { Take(piece); })
    {
    }

    void Run() { m_walk.Run(); }

private:
    void Take(const XmlPiece& piece)
    {
        switch (piece.kind) {
        case XmlPiece::Kind::StartTag:
            break;
        case XmlPiece::Kind::Attribute:
        case XmlPiece::Kind::Text:
            m_map.Add({m_map.PlaceOf(piece.valueBegin), piece.path, piece.value});
            break;
        case XmlPiece::Kind::EndTag:
            AddElement(piece);
            break;
        case XmlPiece::Kind::Open:
            m_map.Add({m_map.PlaceOf(piece.elementBegin), piece.path, piece.value});
            break;
        case XmlPiece::Kind::Unknown:
            m_map.AddEnd(piece.end, {m_map.PlaceOf(piece.begin), piece.path, QString()}, true);
            break;
        }
    }

    void AddElement(const XmlPiece& piece)
    {
        const qint64 start = piece.isObject ? piece.elementBegin : piece.valueBegin;
        const SourceEntry entry = {m_map.PlaceOf(start), piece.path, piece.value};
        m_map.Add(entry);
        m_map.AddEnd(piece.end, entry, piece.isObject);
    }

    SourceMap& m_map;
    XmlWalk m_walk;
};

void SourceMap::SearchXml(const QByteArray& bytes)
{
    TakeText(bytes);
    if (!m_ends.empty() || !m_paths.empty())
        XmlSearch(*this, bytes).Run();
}

} // namespace ReportCore
