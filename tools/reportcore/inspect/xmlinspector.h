#ifndef REPORTCORE_INSPECT_XMLINSPECTOR_H
#define REPORTCORE_INSPECT_XMLINSPECTOR_H

#include <reportcore/inspect/event.h>
#include <reportcore/inspect/xmlelements.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>

#include <functional>
#include <vector>

namespace ReportCore {

/// A part of a document.
struct XmlEvent : Event
{
    enum class Kind
    {
        DocumentType,
        Surrounding, ///< the start tag of an element outside of reports
        SurroundingEnd,
        AnotherReport, ///< the start tag of a report behind the first; of what stands in it, only entities come up
        AnotherReportEnd,

        // Of the first report

        StartTag,  ///< of the report, of what it holds, and of values
        Attribute, ///< of a field
        UnknownAttribute,
        UnknownTag, ///< the start tag of an element that nobody knows
        UnknownEnd,
        Characters,
        Text,   ///< a field that is the text of an object's element, which ends
        EndTag, ///< of a value or an object; what has come up between the tags is known now
        Open,   ///< an object that has not ended where the document breaks off

        // Of all

        Entity ///< one that nobody knows
    };

    Kind kind = Kind::StartTag;

    QString name = {}; ///< of an element, an attribute or an entity

    /// The innermost element of the first report that is open, with the one that begins or ends; null outside.
    const XmlElement* element = nullptr;

    /// Of values and at end tags: where what the element holds begins.
    qint64 contentBegin = 0;

    bool isBlank = false; ///< characters that are nothing but blanks
};

/// Goes through a document as the library reads it, and hands its parts to the visitor.
class XmlInspector
{
public:
    using Visitor = std::function<void(const XmlEvent& event)>;

    enum class Extent
    {
        FirstReport, ///< up to its end
        Document
    };

    /// `text` is what `DecodeXml` makes of the bytes. It must outlive the inspector.
    XmlInspector(const QByteArray& bytes, const QString& text, Visitor visit,
                 Extent extent = Extent::FirstReport);

    void Run();

    /// Whether the document is not well-formed as far as it was read.
    bool HasError() const { return m_reader.hasError(); }

    /// Of the start tag that comes up.
    QXmlStreamNamespaceDeclarations Namespaces() const { return m_reader.namespaceDeclarations(); }

private:
    /// An element that has begun and not ended yet.
    struct Element : XmlElement
    {
        qint64 begin = 0;
        qint64 contentBegin = 0;
        qint64 valueBegin = 0;
        QString text = {};

        bool IsKnown() const { return object || field; }
    };

    qint64 EndOfToken() const;
    XmlEvent EventOf(XmlEvent::Kind kind, qint64 begin) const;
    void Start();
    void StartOutside(const QString& name);
    void StartElement(const Element& parent, const QString& name);
    void Open(Element element);
    void TakeAttributes(const Element& element);
    void TakeAttribute(const Element& element, const QXmlStreamAttribute& attribute);
    void TakeCharacters();
    void TakeEntity();
    void End();
    void EndKnown(const Element& element);
    void BreakOff();

    Visitor m_visit;
    const QString& m_text;
    Extent m_extent;
    QXmlStreamReader m_reader;
    qint64 m_before = 0; ///< where the token begins that the reader stands behind
    bool m_hasReport = false;
    bool m_isBehindReport = false;
    int m_inAnother = 0; ///< elements that are open in another report, with its own
    std::vector<Element> m_elements;
    XmlElements m_known;
};

} // namespace ReportCore

#endif
