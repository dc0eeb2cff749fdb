#ifndef REPORTCORE_XMLWALK_H
#define REPORTCORE_XMLWALK_H

#include <reportcore/xmlelements.h>

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>

#include <functional>
#include <vector>

namespace ReportCore {

/// A part of a report's XML. Positions count units of the text that `DecodeXml` gives, as Qt's reader counts them.
struct XmlPiece
{
    enum class Kind
    {
        StartTag,
        Attribute, ///< of a field
        Text,      ///< a field that is the text of an object's element
        EndTag,    ///< of a value or an object; what has come up between the tags is known now
        Open,      ///< an object that has not ended where the document breaks off
        Unknown    ///< the start tag of an element that nobody knows
    };

    Kind kind = Kind::Unknown;
    qint64 begin = 0;
    qint64 end = 0;

    /// Of what it belongs to; of an unknown element, of the object around it.
    FieldPath path = {};

    // Of values, at end tags, and of what is open

    qint64 elementBegin = 0;
    qint64 valueBegin = 0;

    /// As it was found; null of an object.
    QString value = {};

    bool isObject = false;
};

/// An attribute as it stands in a start tag.
struct XmlAttribute
{
    qint64 begin = 0;
    qint64 end = 0;
    qint64 valueBegin = 0;
};

/// Walks through the first report of a document and hands its pieces to the visitor. What stands below an unknown element
/// has no path.
class XmlWalk
{
public:
    using Visitor = std::function<void(const XmlPiece& piece)>;

    /// `text` is what `DecodeXml` makes of the bytes. Both must outlive the walk.
    XmlWalk(const QByteArray& bytes, const QString& text, Visitor visit);

    void Run();

    /// Where the start tag begins that ends there.
    static qint64 StartOfTag(const QString& text, qint64 end);

    /// The attribute of that name in the start tag between them; the tag itself where it isn't found.
    static XmlAttribute FindAttribute(const QString& text, qint64 begin, qint64 end, const QString& name);

private:
    /// An element that has begun and not ended yet.
    struct Element : XmlElement
    {
        qint64 begin = 0;
        qint64 valueBegin = 0;
        QString text = {};
    };

    qint64 EndOfToken() const;
    void Start();
    void TakeAttributes(const Element& element);
    void Take();
    void End();
    void EndKnown(const Element& element);
    void BreakOff();
    XmlPiece AttributePiece(const Element& element, const QString& name) const;

    Visitor m_visit;
    const QString& m_text;
    QXmlStreamReader m_reader;
    qint64 m_before = 0;
    bool m_isBehindReport = false;
    std::vector<Element> m_elements;
    XmlElements m_known;
};

} // namespace ReportCore

#endif
