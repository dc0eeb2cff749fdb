#ifndef TESTS_SUPPORT_CHOICES_H
#define TESTS_SUPPORT_CHOICES_H

// A row of choices that can be made again: a copy chooses what the original chooses.
//
//     Choices choices(42);                     // by a generator of its own: the same on every platform
//     Choices choices(bytes);                  // by the bytes, from front to back, as a fuzzer gives them
//     switch (choices.Below(3)) { … }
//     if (choices.OneIn(10)) …
//     double number = choices.Of({0.0, 1.5});
//
// The first choice of each kind (0, false, the first of a list) is the plain one: bytes that have run out
// choose it, so that what is built by them comes to an end.

#include <QtCore/QByteArray>
#include <QtCore/QtGlobal>

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace Support {

class Choices
{
public:
    explicit Choices(quint64 seed);
    explicit Choices(const QByteArray& bytes);

    /// A number from 0 to `count` - 1.
    int Below(int count);

    /// True once in `count` times.
    bool OneIn(int count) { return count > 0 && Below(count) == count - 1; }

    /// 64 bits of any value.
    quint64 Word();

    template <class T>
    T Of(std::initializer_list<T> values)
    {
        return values.begin()[Below(static_cast<int>(values.size()))];
    }

    template <class T>
    const T& Of(const std::vector<T>& values)
    {
        return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
    }

    /// Choices that don't depend on how many are made here from now on.
    Choices Apart() { return m_isBySeed ? Choices(Word()) : *this; }

private:
    quint64 Bits(int bytes);

    bool m_isBySeed;
    quint64 m_state = 0;
    QByteArray m_bytes;
    int m_position = 0;
};

} // namespace Support

#endif
