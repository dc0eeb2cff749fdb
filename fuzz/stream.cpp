// A representation, or a body alone, on a caller's QDataStream. A body begins with the length that is
// claimed.

#include "target.h"

#include <QtCore/QtEndian>

namespace {

constexpr int LENGTH_SIZE = 4;

Support::Input BodyOf(const QByteArray& bytes)
{
    Support::Input input = Fuzz::InputOf(bytes.mid(LENGTH_SIZE));
    if (bytes.size() >= LENGTH_SIZE)
        input.length = qFromBigEndian<qint32>(bytes.constData());
    return input;
}

} // namespace

void Examine(const Fuzz::Given& given)
{
    using Support::Form;
    Fuzz::Expect(given.isVariant
                     ? Support::ReadingDifference(Form::Body, given.kind, BodyOf(given.input), given.trip)
                     : Support::ReadingDifference(Form::PlainStream, given.kind, Fuzz::InputOf(given.input),
                                                  given.trip));
}
