#include <reportcore/inspect/binaryinspector.h>

#include <reportgenerator/reportbase/codec/wireformat.h>

namespace ReportCore {

namespace {

QString WhatFollows(const WireField& field, const char* what)
{
    if (IsNull(field.kind, field.bytes.Word()))
        return QStringLiteral("no %1 at all (null)").arg(field.name);
    return QStringLiteral("%1, %2 that follow").arg(field.name, QLatin1String(what));
}

QString DescribeSound(const WireField& field)
{
    switch (field.kind) {
    case Kind::Length:
        return field.number == 0 ? QStringLiteral("bytes of %1").arg(field.name)
                                 : QStringLiteral("bytes of %1 %2").arg(field.name).arg(field.number);
    case Kind::SizeOfBytes:
        return WhatFollows(field, "bytes");
    case Kind::SizeOfUtf8:
        return WhatFollows(field, "bytes of UTF-8");
    case Kind::SizeOfUtf16:
        return WhatFollows(field, "bytes of UTF-16");
    case Kind::Bool:
        return field.bytes.At(0) != 0 ? QStringLiteral("true") : QStringLiteral("false");
    default:
        return field.name;
    }
}

} // namespace

bool IsSize(Kind kind)
{
    return kind == Kind::SizeOfBytes || kind == Kind::SizeOfUtf8 || kind == Kind::SizeOfUtf16;
}

bool IsNull(Kind kind, quint32 word)
{
    return IsSize(kind) && word == REPORTGENERATOR::wire::NULL_SIZE;
}

QString Describe(const WireField& field)
{
    if (!field.IsFaulty())
        return DescribeSound(field);
    if (field.kind == Kind::Other)
        return field.faultText;
    return QStringLiteral("%1: %2").arg(DescribeSound(field), field.faultText);
}

QString DescribeFault(const WireField& field)
{
    if (field.kind == Kind::Other)
        return field.faultText;
    if (field.kind == Kind::Length)
        return QStringLiteral("length of %1: %2").arg(field.name, field.faultText);
    if (IsSize(field.kind))
        return QStringLiteral("size of %1: %2").arg(field.name, field.faultText);
    return QStringLiteral("%1: %2").arg(field.name, field.faultText);
}

} // namespace ReportCore
