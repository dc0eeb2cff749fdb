// Writes the words that fuzzers put where they like: tags, markers and names are those of the library's tables.
//
//     fuzz_dictionary FILE

#include <reportgenerator/reportbase/descriptions/areadescription.h>
#include <reportgenerator/reportbase/descriptions/frequencydescription.h>
#include <reportgenerator/reportbase/descriptions/ifbandwidthdescription.h>
#include <reportgenerator/reportbase/descriptions/reportbasedescription.h>

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

using namespace REPORTGENERATOR;

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
        AddElement(Description<Data>::NAME);
        Add(Streamed(Description<Data>::NAME.Text()));
        std::apply([this](const auto&... row) { (this->AddRow(row), ...); }, Description<Data>::ROWS);
    }

    template <class Data, class T>
    void AddRow(const Field<Data, T, Flagged>& row)
    {
        if (row.place == Place::Element)
            AddElement(row.name);
        else if (row.place == Place::Attribute)
            AddAttribute(row.name, "1.00");
        Add(Word(row.setBy.tag));
    }

    template <class Data, class Object>
    void AddRow(const Member<Data, Object>& row)
    {
        Add(Word(row.setBy.tag));
    }

    template <class Data, class Item>
    void AddRow(const ItemList<Data, Item>& row)
    {
        AddElement(row.name);
        Add(Word(row.setBy.tag));
    }

    template <class Data>
    void AddRow(const FormatVersion<Data>& row)
    {
        AddAttribute(row.name, row.model.latin1);
        Add(Word(row.tag));
        Add(Streamed(row.model.Text()));
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
