// Writes the words that fuzzers put where they like: tags, markers and names are those of the library's tables.
//
//     fuzz_dictionary FILE

#include <reportgenerator/reportbase/schema/areaschema.h>
#include <reportgenerator/reportbase/schema/frequencyschema.h>
#include <reportgenerator/reportbase/schema/ifbandwidthschema.h>
#include <reportgenerator/reportbase/schema/reportbaseschema.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QIODevice>

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <limits>
#include <set>
#include <tuple>

namespace {

using REPORTGENERATOR::AreaData;
using REPORTGENERATOR::CoordinateData;
using REPORTGENERATOR::FormatVersion;
using REPORTGENERATOR::FrequencyData;
using REPORTGENERATOR::IFBandwidthData;
using REPORTGENERATOR::ItemList;
using REPORTGENERATOR::Member;
using REPORTGENERATOR::Name;
using REPORTGENERATOR::Place;
using REPORTGENERATOR::PresenceBit;
using REPORTGENERATOR::ReportBaseData;
using REPORTGENERATOR::ScalarField;
using REPORTGENERATOR::Schema;
namespace wire = REPORTGENERATOR::wire;

/// What XML and numbers are made of, whoever writes them.
const std::initializer_list<const char*> COMMON = {
    "<Unknown>",
    "</Unknown>",
    "<Unknown/>",
    "/>",
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>",
    "<!--",
    "-->",
    "<![CDATA[",
    "]]>",
    "<!DOCTYPE a [<!ENTITY e \"7\">]>",
    "<?p?>",
    "&lt;",
    "&gt;",
    "&amp;",
    "&quot;",
    "&e;",
    "&#x41;",
    "&#0;",
    "\r\n",
    "\n    ",
    "\xef\xbb\xbf",
    "\xee\x80\x80",
    "\xf0\x9f\x93\xa1",
    "8.500000",
    "-45.250000",
    "180.000000",
    "-180.000001",
    "90.000001",
    "121500000.00",
    "-0.00",
    "0.005",
    "1e400",
    " nan",
    "-inf",
    "9007199254740993",
};

class Words
{
public:
    Words()
    {
        for (const char* word : COMMON)
            Add(word);
        for (const qint32 number :
             {0, 1, 8, -1, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()})
            Add(Word(number));
        Add(Streamed(wire::PLAIN_MARKER.Text()));
        Add(Streamed(wire::COMPRESSED_MARKER.Text()));
        AddClass<ReportBaseData>();
        AddClass<FrequencyData>();
        AddClass<IFBandwidthData>();
        AddClass<AreaData>();
        AddClass<CoordinateData>();
    }

    bool WriteTo(QFile& file) const
    {
        bool isWritten = true;
        for (const QByteArray& word : m_words)
            isWritten = file.write('"' + Escaped(word) + "\"\n") > 0 && isWritten;
        return isWritten;
    }

private:
    void Add(const QByteArray& word) { m_words.insert(word); }

    template <class Data>
    void AddClass()
    {
        AddElement(Schema<Data>::NAME);
        Add(Streamed(Schema<Data>::NAME.Text()));
        std::apply([this](const auto&... field) { (this->AddField(field), ...); }, Schema<Data>::FIELDS);
    }

    template <class Data, class T>
    void AddField(const ScalarField<Data, T, PresenceBit>& field)
    {
        if (field.place == Place::Element)
            AddElement(field.name);
        else if (field.place == Place::Attribute)
            AddAttribute(field.name, "1.00");
        Add(Word(field.setBy.tag));
    }

    template <class Data, class Object>
    void AddField(const Member<Data, Object>& field)
    {
        Add(Word(field.setBy.tag));
    }

    template <class Data, class Item>
    void AddField(const ItemList<Data, Item>& field)
    {
        AddElement(field.name);
        Add(Word(field.setBy.tag));
    }

    template <class Data>
    void AddField(const FormatVersion<Data>& field)
    {
        AddAttribute(field.name, field.model.latin1);
        Add(Word(field.tag));
        Add(Streamed(field.model.Text()));
    }

    void AddElement(const Name& name)
    {
        Add(QByteArray("<") + name.latin1);
        Add(QByteArray("<") + name.latin1 + ">");
        Add(QByteArray("</") + name.latin1 + ">");
        Add(QByteArray("<") + name.latin1 + "/>");
    }

    void AddAttribute(const Name& name, const char* value)
    {
        Add(QByteArray(" ") + name.latin1 + "=\"" + value + '"');
        Add(QByteArray(" ") + name.latin1 + "=\"true\"");
    }

    template <class Value>
    static QByteArray Streamed(const Value& value)
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(wire::STREAM_VERSION);
        stream << value;
        return bytes;
    }

    static QByteArray Word(qint32 number) { return Streamed(number); }

    static QByteArray Escaped(const QByteArray& word)
    {
        constexpr char FIRST_PRINTABLE = ' ';
        constexpr char LAST_PRINTABLE = '~';
        QByteArray text;
        for (const char byte : word) {
            if (byte == '"' || byte == '\\')
                text += '\\';
            if (byte >= FIRST_PRINTABLE && byte <= LAST_PRINTABLE)
                text += byte;
            else
                text += "\\x" + QByteArray(1, byte).toHex();
        }
        return text;
    }

    std::set<QByteArray> m_words;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: fuzz_dictionary FILE\n");
        return EXIT_FAILURE;
    }
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::WriteOnly) || !Words().WriteTo(file)) {
        std::fprintf(stderr, "fuzz_dictionary: cannot write %s\n", argv[1]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
