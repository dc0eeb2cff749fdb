#include "target.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace Fuzz {

Given::Given(const QByteArray& data)
    : trip{Support::Choices(data.mid(KIND_SIZE + OFFER_SIZE, SETUP_SIZE)),
           Support::Choices(data.mid(KIND_SIZE, OFFER_SIZE))},
      input(data.mid(HEADER_SIZE))
{
    constexpr unsigned char HIGHEST_BIT = 0x80;
    if (data.isEmpty())
        return;
    const auto first = static_cast<unsigned char>(data.at(0));
    kind = Support::ALL_KINDS[first % Support::ALL_KINDS.size()];
    isVariant = (first & HIGHEST_BIT) != 0;
}

QString TextOf(const QByteArray& bytes)
{
    constexpr ushort FIRST_STAND_IN = 0xe000;
    constexpr ushort FIRST_SURROGATE = 0xd800;
    constexpr ushort SURROGATES = 0x800;
    QString text = QString::fromUtf8(bytes.constData(), static_cast<int>(bytes.size()));
    for (QChar& character : text) {
        const ushort unit = character.unicode();
        if (unit >= FIRST_STAND_IN && unit < FIRST_STAND_IN + SURROGATES)
            character = QChar(static_cast<ushort>(unit - FIRST_STAND_IN + FIRST_SURROGATE));
    }
    return text;
}

Support::Input InputOf(const QByteArray& bytes)
{
    Support::Input input;
    input.text = TextOf(bytes);
    input.bytes = bytes;
    input.length = static_cast<int>(bytes.size());
    return input;
}

void Expect(const std::string& difference)
{
    if (difference.empty())
        return;
    std::fprintf(stderr, "The two ways part:\n%s\n", difference.c_str());
    std::abort();
}

} // namespace Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    Examine(Fuzz::Given(bytes));
    return 0;
}
