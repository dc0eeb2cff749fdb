#include <reportcore/doubts.h>

#include <reportcore/bounds.h>
#include <reportcore/reportfields.h>
#include <reportcore/ring.h>
#include <reportcore/spots.h>
#include <reportcore/texts.h>
#include <reportcore/walk.h>

#include <QtCore/QSet>
#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::Place;

namespace {

// --- Numbers

bool IsNumber(const QString& text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && std::isfinite(number);
}

Problem NoNumber(const FilePlace& place, const FieldPath& path, const QString& text)
{
    bool isNumber = false;
    text.toDouble(&isNumber);
    const QString words = isNumber ? QStringLiteral("%1 is no finite number")
                                   : QStringLiteral("%1 is no number and reads as 0");
    return {QLatin1String(NOT_A_NUMBER), words.arg(path.Last().field->Name()), place, path.Text(),
            QLatin1String("") + text};
}

// --- Names

/// How many characters must be replaced, added, left out or exchanged with their neighbour, whatever their case.
int DistanceOf(const QString& left, const QString& right)
{
    const QString a = left.toLower();
    const QString b = right.toLower();
    const auto width = static_cast<std::size_t>(b.size()) + 1;
    std::vector<int> before(width);
    std::vector<int> last(width);
    std::vector<int> row(width);
    for (std::size_t j = 0; j < width; ++j)
        row[j] = static_cast<int>(j);
    for (int i = 0; i < a.size(); ++i) {
        before = last;
        last = row;
        row[0] = i + 1;
        for (int j = 0; j < b.size(); ++j) {
            const auto column = static_cast<std::size_t>(j) + 1;
            const int replaced = last[column - 1] + (a.at(i) == b.at(j) ? 0 : 1);
            row[column] = std::min({replaced, last[column] + 1, row[column - 1] + 1});
            const bool isExchange = i > 0 && j > 0 && a.at(i) == b.at(j - 1) && a.at(i - 1) == b.at(j);
            if (isExchange)
                row[column] = std::min(row[column], before[column - 2] + 1);
        }
    }
    return row.back();
}

/// A short name is near another one when one character differs, a longer one when two do.
bool IsNear(const QString& name, const QString& known)
{
    constexpr int SHORT_NAME = 4;
    const int farthest = known.size() <= SHORT_NAME ? 1 : 2;
    // Comparing takes the product of the sizes.
    const auto difference = name.size() - known.size();
    if (difference > farthest || difference < -farthest)
        return false;
    return DistanceOf(name, known) <= farthest;
}

/// The known name that is nearly this one; null for none.
QString NearestName(const ObjectInfo& info, Place place, const QString& name)
{
    for (const auto& field : info.All()) {
        if (field->Facts().place == place && IsNear(name, field->Facts().elementName))
            return field->Facts().elementName;
    }
    return QString();
}

// --- XML

/// Goes through the document as the library does, and on to its end.
class XmlDoubts
{
public:
    explicit XmlDoubts(const QByteArray& bytes) : m_reader(bytes) { m_places.TakeText(bytes); }

    Problems Find()
    {
        while (!m_reader.atEnd()) {
            const auto token = m_reader.readNext();
            if (token == QXmlStreamReader::StartElement)
                Start();
            else if (token == QXmlStreamReader::EndElement)
                End();
            else if (token == QXmlStreamReader::Characters)
                Take();
            else if (token == QXmlStreamReader::EntityReference)
                TakeEntity();
        }
        return std::move(m_problems);
    }

private:
    struct Element
    {
        const ObjectInfo* object = nullptr; ///< null for an element that is no object
        const Field* field = nullptr;       ///< null for the report and for what is unknown
        FieldPath path = {};
        FilePlace valuePlace = {};
        QString text = {};
        std::set<const Field*> seen = {};
        std::vector<std::pair<const Field*, int>> counts = {};
    };

    FilePlace PlaceOfTag() const { return m_places.PlaceOf(m_places.StartOfTag(m_reader.characterOffset())); }

    void Add(const char* name, const QString& text, const FilePlace& place, const FieldPath& path,
             const QString& value)
    {
        m_problems.push_back({QLatin1String(name), text, place, path.Text(), value});
    }

    void Start()
    {
        Element element;
        const QString name = m_reader.name().toString();
        if (m_elements.empty()) {
            if (name != ReportInfo().ObjectName())
                return;
            if (m_hasReport)
                Add(SECOND_REPORT, QStringLiteral("only the first report of a document is read"),
                    PlaceOfTag(), {}, name);
            m_isBehind = m_hasReport;
            m_hasReport = true;
            element.object = &ReportInfo();
        } else if (m_elements.back().object && !m_isBehind) {
            Identify(name, m_elements.back(), element);
        }
        element.valuePlace = m_places.PlaceOf(m_reader.characterOffset());
        if (element.object && !m_isBehind)
            TakeAttributes(element);
        m_elements.push_back(element);
    }

    void Identify(const QString& name, Element& holder, Element& element)
    {
        element.path = holder.path;
        element.field = holder.object->FindElement(name, Place::Element);
        if (!element.field) {
            const QString nearest = NearestName(*holder.object, Place::Element, name);
            if (!nearest.isNull())
                Add(MISSPELT_NAME,
                    QStringLiteral("there is no element '%1', did you mean '%2'?").arg(name, nearest),
                    PlaceOfTag(), holder.path, name);
            return;
        }
        element.object = element.field->HasObjects() ? &element.field->Object() : nullptr;
        if (element.field->Kind() == FieldKind::List) {
            element.path.Enter(*element.field, CountOf(*element.field, holder)++);
            return;
        }
        element.path.Enter(*element.field);
        if (!holder.seen.insert(element.field).second)
            Add(REPEATED_ELEMENT, QStringLiteral("element '%1' comes a second time").arg(name), PlaceOfTag(),
                element.path, QString());
    }

    static int& CountOf(const Field& list, Element& holder)
    {
        const auto found = std::find_if(holder.counts.begin(), holder.counts.end(),
                                        [&list](const auto& count) { return count.first == &list; });
        if (found != holder.counts.end())
            return found->second;
        holder.counts.emplace_back(&list, 0);
        return holder.counts.back().second;
    }

    void TakeAttributes(const Element& element)
    {
        for (const QXmlStreamAttribute& attribute : m_reader.attributes()) {
            const QString name = attribute.name().toString();
            const QString value = attribute.value().toString();
            if (const Field* const field = element.object->FindElement(name, Place::Attribute)) {
                TakeValue(element.path, *field, PlaceOfTag(), value);
                continue;
            }
            const QString nearest = NearestName(*element.object, Place::Attribute, name);
            if (!nearest.isNull())
                Add(MISSPELT_NAME,
                    QStringLiteral("there is no attribute '%1', did you mean '%2'?").arg(name, nearest),
                    PlaceOfTag(), element.path, name);
        }
    }

    void TakeValue(FieldPath path, const Field& field, const FilePlace& place, const QString& value)
    {
        if (field.Kind() != FieldKind::Number || IsNumber(value))
            return;
        path.Enter(field);
        m_problems.push_back(NoNumber(place, path, value));
    }

    void Take()
    {
        // Of several pieces the last one counts.
        if (!m_elements.empty())
            m_elements.back().text = m_reader.text().toString();
    }

    void TakeEntity()
    {
        const FieldPath path = m_elements.empty() ? FieldPath() : m_elements.back().path;
        Add(UNRESOLVED_ENTITY, QStringLiteral("the entity is not known and left out"),
            m_places.PlaceOf(m_reader.characterOffset() - m_reader.name().size() - 2), path,
            QStringLiteral("&%1;").arg(m_reader.name().toString()));
    }

    void End()
    {
        if (m_elements.empty())
            return;
        const Element element = std::move(m_elements.back());
        m_elements.pop_back();
        if (m_isBehind)
            return;
        if (!element.object && element.field && element.field->Kind() == FieldKind::Number &&
            !IsNumber(element.text))
            m_problems.push_back(NoNumber(element.valuePlace, element.path, element.text));
        if (!element.object)
            return;
        for (const auto& field : element.object->All()) {
            if (!field->HasObjects() && field->Facts().place == Place::Text)
                TakeValue(element.path, *field, element.valuePlace, element.text);
        }
    }

    Spots m_places;
    QXmlStreamReader m_reader;
    bool m_hasReport = false;
    bool m_isBehind = false; ///< in a report that nobody reads
    std::vector<Element> m_elements;
    Problems m_problems;
};

// --- Binary forms

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
        if (!IsNumber(text))
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

// --- What the report says, in whichever form

/// A finding about a field, whose place is looked for afterwards.
struct FieldDoubt
{
    FieldPath path;
    const char* name;
    QString text;
};

using FieldDoubts = std::vector<FieldDoubt>;

/// Bounds are fields that bear these names; what they bound is the field "value" beside them.
void DoubtBounds(const IRGObject& object, const ObjectInfo& info, const FieldPath& path, FieldDoubts& doubts)
{
    const auto number = [&object, &info](const char* name) {
        const Field* const field = info.FindName(QLatin1String(name));
        return field && field->Kind() == FieldKind::Number ? field->ValueIn(object) : QVariant();
    };
    const auto at = [&path, &info](const char* name) {
        FieldPath fieldPath = path;
        fieldPath.Enter(*info.FindName(QLatin1String(name)));
        return fieldPath;
    };
    const QVariant min = number("min");
    const QVariant max = number("max");
    const QVariant value = number("value");
    if (min.isValid() && max.isValid() && min.toDouble() > max.toDouble()) {
        doubts.push_back({at("min"), MIN_ABOVE_MAX,
                          QStringLiteral("min %1 is above max %2")
                              .arg(NumberText(min.toDouble()), NumberText(max.toDouble()))});
        return;
    }
    if (value.isValid() && min.isValid() && value.toDouble() < min.toDouble())
        doubts.push_back({at("value"), OUTSIDE_BOUNDS,
                          QStringLiteral("value %1 is below min %2")
                              .arg(NumberText(value.toDouble()), NumberText(min.toDouble()))});
    if (value.isValid() && max.isValid() && value.toDouble() > max.toDouble())
        doubts.push_back({at("value"), OUTSIDE_BOUNDS,
                          QStringLiteral("value %1 is above max %2")
                              .arg(NumberText(value.toDouble()), NumberText(max.toDouble()))});
}

void DoubtRing(const IRGObject& holder, const FieldPath& path, Look look, FieldDoubts& doubts)
{
    const Field& list = *path.Last().field;
    constexpr std::size_t FEWEST = 3;
    if (look == Look::Quick && list.CountIn(holder) > EDGES_OF_QUICK_LOOK)
        return;
    // What is no point has been told by the check.
    const std::vector<RingPoint> ring = RingOf(holder, list);
    if (ring.size() < FEWEST && list.IsSetIn(holder))
        doubts.push_back(
            {path, TOO_FEW_POINTS, QStringLiteral("%1 different points surround nothing").arg(ring.size())});
    if (const std::optional<EdgePair> pair = FindCrossing(ring)) {
        FieldPath item = path;
        item.SetIndex(pair->first);
        doubts.push_back({item, CROSSING_EDGES,
                          QStringLiteral("the edges behind %1 %2 and %3 meet")
                              .arg(list.Name())
                              .arg(pair->first + 1)
                              .arg(pair->second + 1)});
    }
}

/// Doubts about an object and what it holds.
void DoubtFields(const IRGObject& object, const ObjectInfo& info, FieldPath& path, Look look,
                 FieldDoubts& doubts)
{
    DoubtBounds(object, info, path, doubts);
    for (const auto& field : info.All()) {
        if (!field->HasObjects())
            continue;
        path.Enter(*field);
        if (HoldsPoints(*field))
            DoubtRing(object, path, look, doubts);
        const int count = HoldsPoints(*field) ? 0 : field->CountIn(object);
        for (int i = 0; i < count; ++i) {
            if (field->Kind() == FieldKind::List)
                path.SetIndex(i);
            DoubtFields(field->ItemIn(object, i), field->Object(), path, look, doubts);
        }
        path.Leave();
    }
}

Problems FieldProblems(const QByteArray& bytes, const ReportFile& file, Look look)
{
    FieldDoubts doubts;
    FieldPath path;
    DoubtFields(file.report, ReportInfo(), path, look, doubts);
    if (doubts.empty())
        return {};
    Spots spots;
    for (const FieldDoubt& doubt : doubts)
        spots.WantPath(doubt.path);
    if (file.form.IsBinary())
        spots.SearchBinary(bytes, file.form.isBinaryFile);
    else
        spots.SearchXml(bytes);
    Problems problems;
    for (const FieldDoubt& doubt : doubts) {
        Problem problem = {QLatin1String(doubt.name), doubt.text, {}, doubt.path.Text()};
        if (const Spot* const spot = spots.FindNearest(doubt.path)) {
            problem.place = spot->place;
            problem.value = spot->path == doubt.path ? spot->value : QString();
        }
        problems.push_back(problem);
    }
    return problems;
}

bool StandsBefore(const Problem& left, const Problem& right)
{
    const auto key = [](const Problem& problem) {
        return std::make_tuple(problem.place.line, problem.place.column, problem.place.offset);
    };
    return key(left) < key(right);
}

// --- When there is nothing to look for

/// What the fields of a report tell of its text.
struct Tally
{
    qint64 attributes = 0;
    bool hasOddNumber = false; ///< one that a text which is no number may have become
};

void Count(const IRGObject& object, const ObjectInfo& info, Tally& tally)
{
    for (const auto& field : info.All()) {
        if (!field->HasObjects() && field->Facts().place == Place::Attribute && field->IsSetIn(object))
            ++tally.attributes;
        if (field->Kind() == FieldKind::Number && field->IsSetIn(object)) {
            const double number = field->ValueIn(object).toDouble();
            tally.hasOddNumber = tally.hasOddNumber || number == 0.0 || !std::isfinite(number);
        }
        const int count = field->CountIn(object);
        for (int i = 0; i < count; ++i)
            Count(field->ItemIn(object, i), field->Object(), tally);
    }
}

/// Whether a report that was read at once may hold something odd. In XML all of its elements are known then, and each has
/// come once; only numbers, attributes and entities can be.
bool MayBeOdd(const QByteArray& bytes, const ReportFile& file, Look look)
{
    if (!file.wasReadAtOnce)
        return true;
    Tally tally;
    Count(file.report, ReportInfo(), tally);
    if (tally.hasOddNumber)
        return true;
    if (file.form.IsBinary())
        return look == Look::Thorough || bytes.size() <= BYTES_OF_QUICK_LOOK;
    const int begin = std::max(static_cast<int>(bytes.indexOf('<' + file.objectName.toLatin1())), 0);
    return bytes.indexOf('&', begin) >= 0 ||
           std::count(bytes.begin() + begin, bytes.end(), '=') != tally.attributes;
}

Problems ReadingProblems(const QByteArray& bytes, const ReportFile& file, Look look)
{
    if (!MayBeOdd(bytes, file, look))
        return {};
    return file.form.IsBinary() ? BinaryDoubts(bytes, file.form.isBinaryFile).Find()
                                : XmlDoubts(bytes).Find();
}

/// Takes away what is about the field of a problem.
void RemoveTold(const Problems& problems, Problems& doubts)
{
    QSet<QString> told;
    for (const Problem& problem : problems) {
        if (!problem.path.isEmpty())
            told.insert(problem.path);
    }
    doubts.erase(std::remove_if(doubts.begin(), doubts.end(),
                                [&told](const Problem& doubt) { return told.contains(doubt.path); }),
                 doubts.end());
}

} // namespace

Problems FindDoubts(const QByteArray& bytes, const ReportFile& file, Look look)
{
    if (file.form.form == Form::Unknown)
        return {};
    Problems doubts = ReadingProblems(bytes, file, look);
    const Problems ofFields = FieldProblems(bytes, file, look);
    doubts.insert(doubts.end(), ofFields.begin(), ofFields.end());
    RemoveTold(file.problems, doubts);
    std::stable_sort(doubts.begin(), doubts.end(), StandsBefore);
    return doubts;
}

} // namespace ReportCore
