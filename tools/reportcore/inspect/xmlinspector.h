#ifndef REPORTCORE_INSPECT_XMLINSPECTOR_H
#define REPORTCORE_INSPECT_XMLINSPECTOR_H

#include <reportcore/inspect/inspector.h>
#include <reportcore/inspect/itemcounts.h>
#include <reportcore/inspect/sourcetext.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>

#include <vector>

namespace ReportCore {

/// Goes through a document in whichever encoding.
class XmlInspector : public Inspector
{
public:
    XmlInspector(const QByteArray& bytes, Visitor visit, Extent extent);

    void Run() override;

    FilePlace PlaceOf(qint64 position) const override { return m_source.PlaceOf(position); }

    const QString& Text() const { return m_source.Text(); }

    /// Whether the document is not well-formed as far as it was read.
    bool HasError() const { return m_reader.hasError(); }

    /// Of the start tag that comes up.
    QXmlStreamNamespaceDeclarations Namespaces() const { return m_reader.namespaceDeclarations(); }

private:
    /// An element of the first report that has begun and not ended yet.
    struct Element
    {
        const ObjectInfo* object = nullptr; ///< null for an element that is no object
        FieldPath path = {};                ///< empty for the report and for what is unknown
        bool isKnown = false;
        bool hasText = false; ///< other than blanks
        qint64 begin = 0;
        qint64 contentBegin = 0;
        qint64 valueBegin = 0;
        QString text = {};
    };

    qint64 EndOfToken() const;
    qint64 StartOfTag() const;
    Event EventOf(Event::Kind kind, qint64 begin) const;
    void GiveValue(Event& event, const FieldPath& path, const QString& value, qint64 end) const;
    void Start();
    void StartOutside();
    void StartWithin(const Element& parent);
    Element ElementOf(const Element& parent, const Field& field);
    void Open(Element element);
    void TakeAttributes(const Element& element);
    void TakeAttribute(const Element& element, const QXmlStreamAttribute& attribute);
    void End();
    void EndKnown(const Element& element);
    void VisitText(const Element& element, const Field& field);
    void BreakOff();
    void TakeDocumentType();
    void TakeCharacters();
    void TakeEntity();

    SourceText m_source;
    Extent m_extent;
    QXmlStreamReader m_reader;
    qint64 m_before = 0; ///< where the token begins that the reader stands behind
    bool m_hasReport = false;
    bool m_isBehindReport = false;
    int m_inAnother = 0; ///< elements that are open in another report, with its own
    int m_unknown = 0;   ///< and unknown ones in the first
    std::vector<Element> m_elements;
    ItemCounts m_counts;
};

} // namespace ReportCore

#endif
