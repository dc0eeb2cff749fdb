#include <reportcore/reading/plaintext.h>

#include <reportcore/reading/bytes.h>

#include <reportgenerator/reflection/reportfields.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <optional>
#include <vector>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::Place;

namespace {

void Tally(const IRGObject& object, const ObjectInfo& info, XmlTally& tally)
{
    ++tally.elements;
    for (const auto& field : info.All()) {
        const int count = field->CountIn(object);
        for (int i = 0; i < count; ++i)
            Tally(field->ItemIn(object, i), field->Object(), tally);
        if (field->HasObjects() || !field->IsSetIn(object))
            continue;
        if (field->Facts().place == Place::Element)
            ++tally.elements;
        else if (field->Facts().place == Place::Attribute)
            ++tally.attributes;
        tally.switches += field->Kind() == FieldKind::Switch ? 1 : 0;
        if (const std::optional<double> number = field->NumberIn(object))
            tally.hasOddNumber = tally.hasOddNumber || *number == 0.0 || !std::isfinite(*number);
    }
}

qint64 CountOf(const QByteArray& text, char byte)
{
    qint64 count = 0;
    const char* const end = text.constData() + text.size();
    for (const char* found = FindByte(text.constData(), end, byte); found != end;
         found = FindByte(found + 1, end, byte))
        ++count;
    return count;
}

// --- Texts

bool AreBlanks(const char* begin, const char* end)
{
    return std::all_of(begin, end, [](char character) {
        return character == ' ' || character == '\t' || character == '\r' || character == '\n';
    });
}

/// Whether texts stand only in elements that hold nothing else.
bool HasTextsOfFieldsOnly(const QByteArray& element)
{
    const char* const end = element.constData() + element.size();
    const char* last = element.constData();
    for (const char* tag = FindByte(last + 1, end, '<'); tag != end; tag = FindByte(tag + 1, end, '<')) {
        const char* const text = FindByte(last, tag, '>');
        const bool isWithinElement = last[1] != '/' && tag[1] == '/';
        if (!isWithinElement && (text == tag || !AreBlanks(text + 1, tag)))
            return false;
        last = tag;
    }
    return true;
}

// --- Entities

/// Whether a reference is to one of the entities that all of XML knows, or to a character.
bool IsKnownEntity(const char* reference)
{
    constexpr const char* KNOWN[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "&#"};
    return std::any_of(std::begin(KNOWN), std::end(KNOWN), [reference](const char* known) {
        return std::strncmp(reference, known, std::strlen(known)) == 0;
    });
}

bool HasKnownEntitiesOnly(const QByteArray& text)
{
    const char* const end = text.constData() + text.size();
    for (const char* sign = FindByte(text.constData(), end, '&'); sign != end;
         sign = FindByte(sign + 1, end, '&')) {
        if (!IsKnownEntity(sign))
            return false;
    }
    return true;
}

// --- Numbers and switches

/// The names of the elements and attributes that hold values of one kind, in a class and below it.
struct ValueNames
{
    std::vector<QByteArray> elements;
    std::vector<QByteArray> attributes;

    void Take(const ObjectInfo& info, FieldKind kind)
    {
        for (const auto& field : info.All()) {
            if (field->HasObjects())
                Take(field->Object(), kind);
            if (field->Kind() != kind)
                continue;
            const FieldFacts& facts = field->Facts();
            const QString& name = facts.place == Place::Text ? info.ObjectName() : facts.elementName;
            (facts.place == Place::Attribute ? attributes : elements).push_back(name.toUtf8());
        }
    }
};

ValueNames NamesOf(FieldKind kind)
{
    ValueNames names;
    names.Take(ReportInfo(), kind);
    return names;
}

const ValueNames& NamesOfNumbers()
{
    static const ValueNames names = NamesOf(FieldKind::Number);
    return names;
}

const ValueNames& NamesOfSwitches()
{
    static const ValueNames names = NamesOf(FieldKind::Switch);
    return names;
}

/// Whether the text between a sign that comes once and an end is a switch as everybody writes it.
bool IsSwitchBehind(const QByteArray& element, const QByteArray& sign, char last)
{
    const auto begin = element.indexOf(sign);
    if (begin < 0)
        return false;
    const char* const text = element.constData() + begin + sign.size();
    const char* const end = FindByte(text, element.constData() + element.size(), last);
    const QByteArray value(text, static_cast<int>(end - text));
    return value == "true" || value == "false" || value == "1" || value == "0";
}

bool AreSwitches(const QByteArray& element, qint64 switches)
{
    if (switches == 0)
        return true;
    qint64 found = 0;
    for (const QByteArray& name : NamesOfSwitches().attributes)
        found += IsSwitchBehind(element, ' ' + name + "=\"", '"') ? 1 : 0;
    for (const QByteArray& name : NamesOfSwitches().elements)
        found += IsSwitchBehind(element, '<' + name + '>', '<') ? 1 : 0;
    return found == switches;
}

bool IsAmong(const std::vector<QByteArray>& names, const char* begin, const char* end)
{
    return std::any_of(names.begin(), names.end(), [begin, end](const QByteArray& name) {
        return std::equal(begin, end, name.begin(), name.end());
    });
}

bool IsNameCharacter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// Whether all texts in front of the end tags of numbers are numbers, and all values of attributes for numbers. Whatever
/// isn't written as the library does it counts as none.
bool AreNumbers(const QByteArray& element)
{
    const char* const first = element.constData();
    const char* const last = first + element.size();
    const char* text = first; // behind the last tag
    for (const char* next = first; next != last; ++next) {
        if (*next == '>')
            text = next + 1;
        if (*next == '<' && next[1] == '/') {
            const char* const name = next + 2;
            const char* const end = std::find_if_not(name, last, IsNameCharacter);
            if (*end != '>' || (IsAmong(NamesOfNumbers().elements, name, end) && !IsPlainNumber(text, next)))
                return false;
        }
        if (*next == '=') {
            const char* name = next;
            while (name != first && IsNameCharacter(name[-1]))
                --name;
            const char* const value = next + 2;
            if (name == next || next[1] != '"')
                return false;
            const char* const end = std::find(value, last, '"');
            if (IsAmong(NamesOfNumbers().attributes, name, next) && !IsPlainNumber(value, end))
                return false;
        }
    }
    return true;
}

} // namespace

XmlTally TallyOf(const IRGObject& report)
{
    XmlTally tally;
    Tally(report, ReportInfo(), tally);
    return tally;
}

bool HasElementsOnly(const QByteArray& element, const XmlTally& tally)
{
    qint64 tags = 0;
    qint64 endTags = 0;
    const char* const end = element.constData() + element.size();
    for (const char* tag = FindByte(element.constData(), end, '<'); tag != end;
         tag = FindByte(tag + 1, end, '<')) {
        ++tags;
        endTags += tag[1] == '/' ? 1 : 0;
    }
    return tags == 2 * tally.elements && endTags == tally.elements;
}

bool IsPlainText(const QByteArray& element, const XmlTally& tally)
{
    // An element that stands alone holds nothing, or a text that nobody reads. Signs that stand in texts count as
    // attributes, too: then it is not plain for certain.
    return tally.elements > 1 && CountOf(element, '=') == tally.attributes && HasKnownEntitiesOnly(element) &&
           HasTextsOfFieldsOnly(element) && AreSwitches(element, tally.switches) &&
           (!tally.hasOddNumber || AreNumbers(element));
}

} // namespace ReportCore
