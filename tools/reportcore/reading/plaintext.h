#ifndef REPORTCORE_READING_PLAINTEXT_H
#define REPORTCORE_READING_PLAINTEXT_H

#include <reportgenerator/reflection/field.h>

#include <QtCore/QByteArray>

namespace ReportCore {

/// What the fields of a report tell of the XML that it was read from.
struct XmlTally
{
    qint64 elements = 0;
    qint64 attributes = 0;
    qint64 switches = 0;
    bool hasOddNumber = false; ///< one that a text which is no number may have become
};

/// The elements and attributes that a report's XML has at least: one each for each object and for what is set of it.
XmlTally TallyOf(const REPORTGENERATOR::IRGObject& report);

/// Whether the text of a report's element holds these elements and no other, each with an end tag.
bool HasElementsOnly(const QByteArray& element, const XmlTally& tally);

/// Whether the text, with these elements only, says nothing but the report's fields: no unknown attributes, no texts
/// between elements, no numbers and switches that are none, no entities but XML's own.
bool IsPlainText(const QByteArray& element, const XmlTally& tally);

} // namespace ReportCore

#endif
