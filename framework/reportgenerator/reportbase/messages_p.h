#ifndef REPORTGENERATOR_MESSAGES_P_H
#define REPORTGENERATOR_MESSAGES_P_H

#include <reportgenerator/reportbase/codec/markupscanner.h>
#include <reportgenerator/reportbase/codec/name.h>
#include <reportgenerator/reportbase/logger.h>

#include <QtCore/QString>

namespace REPORTGENERATOR {

class IRGObject;

/// Every text that the library reports, one function per pattern. The texts are read by other programs: their
/// wording, spelling and punctuation are fixed.
namespace messages {

/// "%1 - %2%3: %4": time, "FATAL " or nothing, level, text.
QString LogLine(const QString& now, bool fatal, LogLevel level, const QString& text);

/// Error name, colon, blank, error text.
QString NameAndText(const ReportException& exception);

// Reading and writing

QString CantOpenForReading(const QString& path);
QString UnsuitableXml(const QString& objectName);
QString TooMuchMarkup(MarkupScanner::Excess excess);
QString UnknownTag(const QString& tag, const QString& objectName);
QString GetBinaryNotImplemented(int objectType);
QString SetBinaryNotImplemented(int objectType);
QString BinaryLengthError(const QString& objectName);

// Incomplete or wrong contents

/// A field that `Check` finds missing or wrong.
QString PleaseSetProperly(const QString& objectName, const Name& field);

/// A field whose setter was given nothing.
QString PleaseSetProperlyInSetter(const QString& objectName, const Name& field);

/// The message names the field by its old member name: "m_" and the name in lower case.
QString NotWithinRange(const Name& field, double low, double high, const QString& objectName);

/// A field that a check of the plainer classes finds missing; three classes punctuate and spell it
/// differently.
QString PleaseSet(const QString& objectName, const QString& field);
QString PleaseSetWithoutMark(const QString& objectName, const QString& field);
QString PLeaseSet(const QString& objectName, const QString& field);
QString PleaseSetEither(const QString& objectName, const QString& first, const QString& second);

QString ValueMinMaxWithoutName();
QString FrequencyListWithoutValue();
QString InvalidMeasurementMode(const QString& objectName, int mode);
QString WrongListLength(const QString& objectName, int length);
QString IncompleteCoordinateAppended(const QString& objectName);
QString IncompleteCoordinateWritten(const QString& objectName);
QString DoubleNotSet(const QString& objectName);

// Merging

QString MergeTypeMismatch(const QString& objectName, const char* otherType, const char* ownType);
QString MergeVersionMismatch(const QString& objectName);

// Progress

QString GeneratingXmlString(const QString& objectName);
QString LoadingXmlString(const QString& objectName);
QString LoadingXmlFile(const QString& objectName, const QString& fileName);
QString LoadingXmlFileWithConverter(const QString& objectName, const QString& fileName);
QString InjectingVersionConverter(const QString& objectName);
QString RemovingVersionConverter(const QString& objectName);
QString GeneratingBinaryStream(const QString& objectName);
QString GeneratingBinaryArray(const QString& objectName);
QString GeneratingCompressedStream(const QString& objectName);
QString GeneratingCompressedArray(const QString& objectName);
QString LoadingBinaryStream(const QString& objectName);
QString LoadingBinaryArray(const QString& objectName);
QString LoadingBinaryFile(const QString& objectName, const QString& fileName);

// Registration and settings

QString UndefinedInterface();
QString InterfaceAlreadyRegistered(const QString& objectName);
QString InvalidXmlFragment();
QString SetSettingsFailed(const QString& errorText);

// Version conversion

QString ConvertingFailed(const QString& rootClass, const QString& version, const QString& errorText);

} // namespace messages
} // namespace REPORTGENERATOR

#endif
