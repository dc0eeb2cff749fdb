#include <reportcore/importing/wktreader.h>

#include <reportcore/importing/coordinatesystem.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QRegularExpression>

namespace ReportCore {

namespace {

class WktReader
{
public:
    WktReader(const QString& text, ImportedFeature& feature) : m_text(text), m_feature(feature) {}

    void Read()
    {
        TakeSystem();
        QString type = WithoutDimensions(Word());
        const bool isMulti = type.startsWith(QLatin1String("MULTI"));
        if (isMulti)
            type.remove(0, 5);
        for (QString further = Word(); !further.isEmpty(); further = Word()) {
            if (further == QLatin1String("EMPTY"))
                return;
            if (!WithoutDimensions(further).isEmpty())
                Refuse();
        }
        if (type == QLatin1String("GEOMETRYCOLLECTION")) {
            m_feature.hindrance = QStringLiteral("an area is one outline, not a collection of geometries");
            return;
        }
        if (isMulti)
            List([&] { ReadPart(type); });
        else
            ReadPart(type);
        if (!Next().isNull())
            Refuse();
    }

private:
    /// The coordinate system may stand in front, by its number: "SRID=4326;"; 0 stands for none.
    void TakeSystem()
    {
        static const QRegularExpression prefix(QStringLiteral("^\\s*SRID=([0-9]+);"),
                                               QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch match = prefix.match(m_text);
        if (!match.hasMatch())
            return;
        m_place = match.capturedEnd();
        if (match.captured(1).toInt() != 0)
            RequireWgs84(match.captured(1));
    }

    /// What some put behind the type of a geometry with heights or measures, with or without a blank.
    static QString WithoutDimensions(QString word)
    {
        for (const char dimension : {'M', 'Z'}) {
            if (word.endsWith(QLatin1Char(dimension)))
                word.chop(1);
        }
        return word;
    }

    /// Databases write geometries so, in hexadecimal digits, unless they are asked for text.
    bool IsBinary() const
    {
        static const QRegularExpression binary(QStringLiteral("^\\s*0[01][0-9A-Fa-f]{8,}\\s*$"));
        return binary.match(m_text).hasMatch();
    }

    [[noreturn]] void Refuse() const
    {
        if (IsBinary())
            throw ImportError{QStringLiteral("well-known binary; ST_AsText makes well-known text of it")};
        constexpr int SHOWN = 60;
        const QString shown = m_text.size() > SHOWN ? m_text.left(SHOWN) + QStringLiteral("...") : m_text;
        throw ImportError{QStringLiteral("not well-known text: %1").arg(Quoted(shown))};
    }

    /// The next character that is no blank; null at the end.
    QChar Next()
    {
        while (m_place < m_text.size() && m_text.at(m_place).isSpace())
            ++m_place;
        return m_place < m_text.size() ? m_text.at(m_place) : QChar();
    }

    bool Take(char character)
    {
        const bool isNext = Next() == QLatin1Char(character);
        if (isNext)
            ++m_place;
        return isNext;
    }

    /// Empty where there is none.
    QString Word()
    {
        QString word;
        for (QChar next = Next(); m_place < m_text.size() && m_text.at(m_place).isLetter(); ++m_place) {
            next = m_text.at(m_place);
            word += next.toUpper();
        }
        return word;
    }

    template <class ReadItem>
    void List(ReadItem&& readItem)
    {
        if (!Take('('))
            Refuse();
        do
            readItem();
        while (Take(','));
        if (!Take(')'))
            Refuse();
    }

    void ReadPart(const QString& type)
    {
        if (type == QLatin1String("POINT"))
            ReadPoint();
        else if (type == QLatin1String("LINESTRING"))
            m_feature.parts.push_back({ReadPoints(), {}});
        else if (type == QLatin1String("POLYGON"))
            ReadRings();
        else
            Refuse();
    }

    /// Several points may stand without parentheses of their own.
    void ReadPoint()
    {
        if (Next() != QLatin1Char('(')) {
            m_feature.parts.push_back({{ReadPosition()}, {}});
            return;
        }
        const Points points = ReadPoints();
        if (points.size() != 1)
            Refuse();
        m_feature.parts.push_back({points, {}});
    }

    void ReadRings()
    {
        int count = 0;
        List([&] {
            Points ring = ReadPoints();
            if (count++ == 0)
                m_feature.parts.push_back({std::move(ring), {}});
            else
                m_feature.parts.back().hindrance = QStringLiteral("an area has no holes");
        });
    }

    Points ReadPoints()
    {
        Points points;
        List([&] { points.push_back(ReadPosition()); });
        return points;
    }

    Point ReadPosition()
    {
        const double longitude = ReadNumber();
        const double latitude = ReadNumber();
        // Heights and measures, which no report has.
        while (Next() != QLatin1Char(',') && Next() != QLatin1Char(')'))
            ReadNumber();
        return {longitude, latitude};
    }

    double ReadNumber()
    {
        Next();
        const auto start = m_place;
        while (m_place < m_text.size() && !m_text.at(m_place).isSpace() &&
               !QStringLiteral("(),").contains(m_text.at(m_place)))
            ++m_place;
        bool isNumber = false;
        const double number = m_text.mid(start, m_place - start).toDouble(&isNumber);
        if (!isNumber)
            Refuse();
        return number;
    }

    const QString& m_text;
    ImportedFeature& m_feature;
    decltype(QString().size()) m_place = 0;
};

} // namespace

void AddWkt(const QString& text, ImportedFeature& feature)
{
    WktReader(text, feature).Read();
}

} // namespace ReportCore
