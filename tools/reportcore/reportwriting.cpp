#include <reportcore/reportwriting.h>

#include <reportcore/files.h>
#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reflection/names.h>
#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reportbase/codec/wireformat.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <algorithm>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

namespace {

namespace wire = REPORTGENERATOR::wire;

QByteArray BinaryFile(const QByteArray& representation)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(wire::STREAM_VERSION);
    stream << representation;
    return bytes;
}

/// Numbers may have been rounded.
bool IsKept(const IRGObject& written, const IRGObject& read, const Field& field)
{
    if (field.Kind() == FieldKind::Version)
        return true;
    if (field.IsSetIn(written) != field.IsSetIn(read) || field.CountIn(written) != field.CountIn(read))
        return false;
    return field.Kind() != FieldKind::Text || field.ValueIn(written) == field.ValueIn(read);
}

QString FindLossOf(const IRGObject& written, const IRGObject& read, const ObjectInfo& info)
{
    for (const Field* field : info.InReadingOrder()) {
        if (!IsKept(written, read, *field)) {
            if (field->Kind() == FieldKind::Object)
                return QStringLiteral("the %1").arg(field->Label());
            const QString article = field->Kind() == FieldKind::List ? QString() : QStringLiteral("the ");
            return QStringLiteral("%1%2 of the %3").arg(article, field->WireLabel(), info.Label());
        }
        if (field->Kind() == FieldKind::Object && field->IsSetIn(written)) {
            QString loss = FindLossOf(field->ItemIn(written, 0), field->ItemIn(read, 0), field->Object());
            if (!loss.isEmpty())
                return loss;
        }
    }
    return QString();
}

QByteArray Write(const IRGObject& object, const FileForm& form, int level)
{
    if (form.form == Form::Xml)
        return object.GetXmlString().toUtf8();
    const QByteArray representation = form.form == Form::Compressed
                                          ? object.GetCompressedBinaryRepresentationAsQByteArray(level)
                                          : object.GetBinaryRepresentationAsQByteArray();
    return form.isBinaryFile ? BinaryFile(representation) : representation;
}

} // namespace

QByteArray WriteReport(const IRGObject& object, const FileForm& form, int level)
{
    object.SetValidate(true);
    return Write(object, form, level);
}

QByteArray WriteUnchecked(const IRGObject& object, const FileForm& form, int level)
{
    object.SetValidate(false);
    return Write(object, form, level);
}

QByteArray WriteWhole(const ReportBase& report, const FileForm& form, int level)
{
    QByteArray bytes;
    try {
        bytes = WriteReport(report, form, level);
    } catch (const ReportException& refused) {
        throw NotWritten{QStringLiteral("%1: %2").arg(refused.GetErrorName(), refused.GetErrorText())};
    }
    const QString excess = FindExcess(bytes);
    if (!excess.isEmpty())
        throw NotWritten{excess};
    const QString loss = FindLoss(report, bytes);
    if (!loss.isEmpty())
        throw NotWritten{QStringLiteral("this form would not keep ") + loss};
    return bytes;
}

QString FindExcess(const QByteArray& bytes)
{
    qint64 size = bytes.size();
    const FileForm form = Recognise(bytes);
    if (form.form == Form::Compressed) {
        const FileRange data = CompressedData(bytes, form.isBinaryFile);
        if (data.Has(wire::WORD_SIZE))
            size = std::max<qint64>(size, data.Word());
    }
    if (size <= Ceiling())
        return QString();
    return QStringLiteral("this would be %1 bytes, more than the ceiling of %2; see reporttool --ceiling")
        .arg(size)
        .arg(Ceiling());
}

QString FindLoss(const ReportBase& written, const QByteArray& bytes)
{
    const ReportFile file = ReadReport(bytes);
    if (!file.IsGood())
        return QStringLiteral("the report: ") + file.problems.front().text;
    return FindLossBetween(written, file.report);
}

QString FindLossBetween(const ReportBase& written, const ReportBase& read)
{
    return FindLossOf(written, read, ReportInfo());
}

} // namespace ReportCore
