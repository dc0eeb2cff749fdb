// Mutates rows of operations by their steps: one is doubled, left out, exchanged for another one, or changed in itself.

#include "support/sequences.h"
#include "target.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

constexpr std::size_t HEADER = Fuzz::HEADER_SIZE;
constexpr std::size_t STEP = Support::STEP_SIZE;

/// The steps of an input in the fuzzer's own room.
class StepsIn
{
public:
    StepsIn(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned int seed)
        : m_steps(data + HEADER), m_count((size - HEADER) / STEP), m_room((maxSize - HEADER) / STEP),
          m_random(seed)
    {
    }

    void Mutate()
    {
        std::uint8_t* const step = Any();
        switch (m_random() % 8) {
        case 0:
            if (m_count < m_room)
                Insert(step);
            break;
        case 1:
            if (m_count > 1)
                Remove(step);
            break;
        case 2:
            std::swap_ranges(step, step + STEP, Any());
            break;
        default: {
            const std::size_t size = LLVMFuzzerMutate(step, STEP, STEP);
            std::fill(step + size, step + STEP, std::uint8_t(0));
            break;
        }
        }
    }

    std::size_t Size() const { return HEADER + m_count * STEP; }

private:
    std::uint8_t* Any() { return m_steps + m_random() % m_count * STEP; }
    std::uint8_t* End() { return m_steps + m_count * STEP; }

    /// Another step, before this one.
    void Insert(std::uint8_t* step)
    {
        std::copy_n(Any(), STEP, End());
        std::rotate(step, End(), End() + STEP);
        ++m_count;
    }

    void Remove(std::uint8_t* step)
    {
        std::copy(step + STEP, End(), step);
        --m_count;
    }

    std::uint8_t* m_steps;
    std::size_t m_count;
    std::size_t m_room;
    std::minstd_rand m_random;
};

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed)
{
    constexpr unsigned int SELDOM = 16;
    if (size < HEADER + STEP || seed % SELDOM == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    StepsIn steps(data, size, maxSize, seed);
    steps.Mutate();
    return steps.Size();
}
