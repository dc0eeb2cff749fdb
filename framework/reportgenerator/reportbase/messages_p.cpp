#include <reportgenerator/reportbase/messages_p.h>

#include <reportgenerator/reportbase/codec/nametable.h>
#include <reportgenerator/reportbase/codec/numbers.h>
#include <reportgenerator/reportbase/reportexception.h>

namespace REPORTGENERATOR::messages {

namespace {

constexpr NamedNumber<LogLevel> LOG_LEVELS[] = {
    {LogLevel::ERROR, REPORTBASE_NAME("ERROR")},
    {LogLevel::WARNING, REPORTBASE_NAME("WARNING")},
    {LogLevel::INFO, REPORTBASE_NAME("INFO")},
};

QString LevelName(LogLevel level)
{
    const auto* row = FindNumber(LOG_LEVELS, level);
    return row ? row->name.Text() : QString();
}

QString WithFileName(const QString& objectName, const QString& text, const QString& fileName)
{
    return objectName + text + QLatin1Char('"') + fileName + QStringLiteral("\".");
}

} // namespace

QString LogLine(const QString& now, bool fatal, LogLevel level, const QString& text)
{
    const QString prefix = fatal ? QStringLiteral("FATAL ") : QString();
    return QStringLiteral("%1 - %2%3: %4").arg(now, prefix, LevelName(level), text);
}

QString NameAndText(const ReportException& exception)
{
    return exception.GetErrorName() + QStringLiteral(": ") + exception.GetErrorText();
}

QString CantOpenForReading(const QString& path)
{
    return QStringLiteral("Can't open file for reading: '%1'").arg(path);
}

QString UnsuitableXml(const QString& objectName)
{
    return QStringLiteral("Unsuitable XML for %1!").arg(objectName);
}

QString TooMuchMarkup(MarkupScanner::Excess excess)
{
    return excess == MarkupScanner::Excess::Declared
               ? QStringLiteral("The document type declares more than %1 attributes.")
                     .arg(limits::MAX_DECLARED_ATTRIBUTES)
               : QStringLiteral("An element has more than %1 attributes or namespaces.")
                     .arg(limits::MAX_ATTRIBUTES);
}

QString UnknownTag(const QString& tag, const QString& objectName)
{
    return QStringLiteral("Unknown Tag '%1' in '%2'.").arg(tag, objectName);
}

QString GetBinaryNotImplemented(int objectType)
{
    return QStringLiteral("GetBinary is not implemented for object of type %1.").arg(objectType);
}

QString SetBinaryNotImplemented(int objectType)
{
    return QStringLiteral("SetBinary is not implemented for object of type %1.").arg(objectType);
}

QString BinaryLengthError(const QString& objectName)
{
    return objectName +
           QStringLiteral(
               "::SetBinary(...): Length error occurred during processing of binary representation");
}

QString PleaseSetProperly(const QString& objectName, const Name& field)
{
    return objectName + QStringLiteral(": Please set %1 properly.").arg(field.Latin1());
}

QString PleaseSetProperlyInSetter(const QString& objectName, const Name& field)
{
    return objectName + QStringLiteral(": Please set %1 properly (origin: Setter).").arg(field.Latin1());
}

QString NotWithinRange(const Name& field, double low, double high, const QString& objectName)
{
    return QStringLiteral("Parameters for m_%1 are not set within range (%2, %3) in '%4'.")
        .arg(field.Text().toLower(), numbers::ToShortestText(low), numbers::ToShortestText(high), objectName);
}

QString PleaseSet(const QString& objectName, const QString& field)
{
    return QStringLiteral("%1: Please set %2!").arg(objectName, field);
}

QString PleaseSetWithoutMark(const QString& objectName, const QString& field)
{
    return QStringLiteral("%1: Please set %2").arg(objectName, field);
}

QString PLeaseSet(const QString& objectName, const QString& field)
{
    return QStringLiteral("%1: PLease set %2!").arg(objectName, field);
}

QString PleaseSetEither(const QString& objectName, const QString& first, const QString& second)
{
    return QStringLiteral("%1: Please set either %2 or %3!").arg(objectName, first, second);
}

QString ValueMinMaxWithoutName()
{
    return QStringLiteral("ValueMinMax: Please set object name!");
}

QString FrequencyListWithoutValue()
{
    return QStringLiteral("FrequencyList: Please set Value!");
}

QString InvalidMeasurementMode(const QString& objectName, int mode)
{
    return QStringLiteral("'%1': Invalid MeasurementModeType '%2'.").arg(objectName, QString::number(mode));
}

QString WrongListLength(const QString& objectName, int length)
{
    return QStringLiteral("'%1': List has the wrong length! It should be '%2'.")
        .arg(objectName, QString::number(length));
}

QString IncompleteCoordinateAppended(const QString& objectName)
{
    return objectName +
           QStringLiteral(": Tried to append not completely defined or invalid item Coordinate.");
}

QString IncompleteCoordinateWritten(const QString& objectName)
{
    return QStringLiteral("Parameters for Coordinate are not set properly in '%1'.").arg(objectName);
}

QString DoubleNotSet(const QString& objectName)
{
    return objectName + QStringLiteral("The double has not been set! Please use SetValue first");
}

QString MergeTypeMismatch(const QString& objectName, const char* otherType, const char* ownType)
{
    return objectName + QStringLiteral(": Merging will be aborted, because a type mismatch occurred. ") +
           QLatin1String(otherType) + QStringLiteral(" != ") + QLatin1String(ownType);
}

QString MergeVersionMismatch(const QString& objectName)
{
    return objectName + QStringLiteral(": Merging will be aborted, because a version mismatch occurred.");
}

QString GeneratingXmlString(const QString& objectName)
{
    return objectName + QStringLiteral(": Generating xml string.");
}

QString LoadingXmlString(const QString& objectName)
{
    return objectName + QStringLiteral(": Loading xml string.");
}

QString LoadingXmlFile(const QString& objectName, const QString& fileName)
{
    return WithFileName(objectName, QStringLiteral(": Loading xml file "), fileName);
}

QString LoadingXmlFileWithConverter(const QString& objectName, const QString& fileName)
{
    return WithFileName(objectName, QStringLiteral(": Using version converter to load the xml file "),
                        fileName);
}

QString InjectingVersionConverter(const QString& objectName)
{
    return objectName + QStringLiteral(": Injecting version converter.");
}

QString RemovingVersionConverter(const QString& objectName)
{
    return objectName + QStringLiteral(": Removing version converter.");
}

QString GeneratingBinaryStream(const QString& objectName)
{
    return objectName + QStringLiteral(": Generating binary representation (target: data stream).");
}

QString GeneratingBinaryArray(const QString& objectName)
{
    return objectName + QStringLiteral(": Generating binary representation (target: byte array).");
}

QString GeneratingCompressedStream(const QString& objectName)
{
    return objectName +
           QStringLiteral(": Generating compressed binary representation (target: data stream).");
}

QString GeneratingCompressedArray(const QString& objectName)
{
    return objectName + QStringLiteral(": Generating compressed binary representation (target: byte array).");
}

QString LoadingBinaryStream(const QString& objectName)
{
    return objectName + QStringLiteral(": Loading binary representation (source: data stream).");
}

QString LoadingBinaryArray(const QString& objectName)
{
    return objectName + QStringLiteral(": Loading binary representation (source: byte array).");
}

QString LoadingBinaryFile(const QString& objectName, const QString& fileName)
{
    return WithFileName(objectName, QStringLiteral(": Loading binary file "), fileName);
}

QString UndefinedInterface()
{
    return QStringLiteral("RegisterCenter:: While trying to register an interface that isn't defined");
}

QString InterfaceAlreadyRegistered(const QString& objectName)
{
    return QStringLiteral("Interface %1 already registered in SettingsNotifier").arg(objectName);
}

QString InvalidXmlFragment()
{
    return QStringLiteral("Invalid XML-Fragment!");
}

QString SetSettingsFailed(const QString& errorText)
{
    return QStringLiteral("SettingsNotifier::SetSettings: ") + errorText;
}

QString ConvertingFailed(const QString& rootClass, const QString& version, const QString& errorText)
{
    return QStringLiteral("Converting ") + rootClass + QStringLiteral(", Version: ") + version +
           QLatin1Char(' ') + errorText;
}

} // namespace REPORTGENERATOR::messages
