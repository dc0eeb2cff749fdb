// A compressed representation: the input is the body before it is packed, or the packed data.

#include "target.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

namespace {

QByteArray Representation(Support::Kind kind, const QByteArray& data)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_6);
    stream << QStringLiteral("IRGObjectQCompress") << Support::NameOf(kind) << data;
    return bytes;
}

} // namespace

void Examine(const Fuzz::Given& given)
{
    // Packing well takes longer than all the rest.
    constexpr int FAST = 1;
    const QByteArray data = given.isVariant ? given.input : qCompress(given.input, FAST);
    const Support::Input input = Fuzz::InputOf(Representation(given.kind, data));
    Fuzz::Expect(Support::ReadingDifference(Support::Form::CompressedArray, given.kind, input, given.trip));
}
