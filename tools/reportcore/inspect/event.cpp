#include <reportcore/inspect/event.h>

#include <reportgenerator/reflection/texts.h>
#include <reportgenerator/reportbase/codec/wireformat.h>

namespace ReportCore {

using Kind = Event::Kind;

namespace {

QString WhatFollows(const Event& event, const char* what)
{
    if (IsNull(event.kind, event.bytes.Word()))
        return QStringLiteral("no %1 at all (null)").arg(event.name);
    return QStringLiteral("%1, %2 that follow").arg(event.name, QLatin1String(what));
}

QString DescribeSound(const Event& event)
{
    switch (event.kind) {
    case Kind::Length:
        return event.number == 0 ? QStringLiteral("bytes of %1").arg(event.name)
                                 : QStringLiteral("bytes of %1 %2").arg(event.name).arg(event.number);
    case Kind::SizeOfBytes:
        return WhatFollows(event, "bytes");
    case Kind::SizeOfUtf8:
        return WhatFollows(event, "bytes of UTF-8");
    case Kind::SizeOfUtf16:
        return WhatFollows(event, "bytes of UTF-16");
    case Kind::Bool:
        return event.bytes.At(0) != 0 ? QStringLiteral("true") : QStringLiteral("false");
    default:
        return event.name;
    }
}

QString TagText(const Event& event)
{
    constexpr int DIGITS = 8;
    constexpr int HEXADECIMAL = 16;
    return QStringLiteral("0x%1").arg(event.bytes.Word(), DIGITS, HEXADECIMAL, QLatin1Char('0'));
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

QString Subject(const Event& event)
{
    switch (event.kind) {
    case Kind::Tag:
        return event.role == Event::Role::Unknown ? QStringLiteral("element with tag %1").arg(TagText(event))
                                                  : event.path->Last().field->Name();
    case Kind::AnotherReport:
        return QStringLiteral("another report");
    case Kind::Entity:
        return QStringLiteral("entity '&%1;'").arg(event.name);
    case Kind::UnknownAttribute:
        return QStringLiteral("attribute '%1'").arg(event.name);
    case Kind::UnknownText:
        return QStringLiteral("text ") + Quoted(event.value);
    case Kind::DividedText:
        return QStringLiteral("a piece of a text that something divides");
    default:
        return QStringLiteral("element '%1'").arg(event.name);
    }
}

QString Describe(const Event& event)
{
    if (!event.IsFaulty())
        return DescribeSound(event);
    if (event.kind == Kind::Other)
        return event.faultText;
    return QStringLiteral("%1: %2").arg(DescribeSound(event), event.faultText);
}

QString DescribeFault(const Event& event)
{
    if (event.kind == Kind::Other)
        return event.faultText;
    const QString what = event.kind == Kind::Length ? QStringLiteral("length of ")
                         : IsSize(event.kind)       ? QStringLiteral("size of ")
                                                    : QString();
    return QStringLiteral("%1%2: %3").arg(what, event.name, event.faultText);
}

} // namespace ReportCore
