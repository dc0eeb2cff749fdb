#include <reportcore/spots.h>

#include <reportcore/xmlwalk.h>

namespace ReportCore {

/// The pass through XML.
class XmlSearch
{
public:
    XmlSearch(Spots& spots, const QByteArray& bytes)
        : m_spots(spots), m_walk(bytes, spots.m_text, [this](const XmlPiece& piece) { Take(piece); })
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
            m_spots.Add({m_spots.PlaceOf(piece.valueBegin), piece.path, piece.value});
            break;
        case XmlPiece::Kind::EndTag:
            AddElement(piece);
            break;
        case XmlPiece::Kind::Open:
            m_spots.Add({m_spots.PlaceOf(piece.elementBegin), piece.path, piece.value});
            break;
        case XmlPiece::Kind::Unknown:
            m_spots.AddEnd(piece.end, {m_spots.PlaceOf(piece.begin), piece.path, QString()}, true);
            break;
        }
    }

    void AddElement(const XmlPiece& piece)
    {
        const qint64 start = piece.isObject ? piece.elementBegin : piece.valueBegin;
        const Spot spot = {m_spots.PlaceOf(start), piece.path, piece.value};
        m_spots.Add(spot);
        m_spots.AddEnd(piece.end, spot, piece.isObject);
    }

    Spots& m_spots;
    XmlWalk m_walk;
};

void Spots::SearchXml(const QByteArray& bytes)
{
    TakeText(bytes);
    if (!m_ends.empty() || !m_paths.empty())
        XmlSearch(*this, bytes).Run();
}

} // namespace ReportCore
