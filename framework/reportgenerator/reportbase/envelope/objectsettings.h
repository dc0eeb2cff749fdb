#ifndef REPORTGENERATOR_ENVELOPE_OBJECTSETTINGS_H
#define REPORTGENERATOR_ENVELOPE_OBJECTSETTINGS_H

#include <QtCore/QtGlobal>

#include <atomic>
#include <cstdint>
#include <memory>
#include <thread>
#include <utility>

namespace REPORTGENERATOR {

class Logger;
class VersionConverterProxy;

/// Validate flag, logger and version converter of an object, which are held. Logger and converter stand in a
/// block that objects may share; without them there is none.
class ObjectSettings
{
public:
    /// Those of a new object.
    ObjectSettings() = default;
    /// Without logger and converter.
    explicit ObjectSettings(bool validate) : m_word(validate ? 0 : NOT_VALIDATING) {}
    ObjectSettings(bool validate, std::shared_ptr<Logger> logger,
                   std::shared_ptr<VersionConverterProxy> converter)
        : ObjectSettings(validate)
    {
        if (!logger && !converter)
            return;
        if (converter)
            m_word |= HAS_CONVERTER;
        m_word |= reinterpret_cast<std::uintptr_t>(new Block{std::move(logger), std::move(converter)});
    }
    ObjectSettings(const ObjectSettings& other) noexcept : m_word(other.m_word) { Retain(); }
    ObjectSettings(ObjectSettings&& other) noexcept : m_word(std::exchange(other.m_word, 0)) {}
    ObjectSettings& operator=(const ObjectSettings& other) = delete;
    ~ObjectSettings() { Release(); }

    /// Stands where there are none, and differs from those of every object.
    static ObjectSettings None() { return ObjectSettings(NONE); }
    bool IsNone() const { return m_word == NONE; }

    bool Validates() const { return (m_word & NOT_VALIDATING) == 0; }
    bool HasConverter() const { return (m_word & HAS_CONVERTER) != 0; }
    std::shared_ptr<Logger> GetLogger() const { return HasBlock(m_word) ? TheBlock().logger : nullptr; }
    std::shared_ptr<VersionConverterProxy> GetConverter() const
    {
        return HasBlock(m_word) ? TheBlock().converter : nullptr;
    }

    /// The same but for the flag.
    ObjectSettings WithValidate(bool validate) const
    {
        Retain();
        return ObjectSettings(validate ? m_word & ~NOT_VALIDATING : m_word | NOT_VALIDATING);
    }

private:
    friend class SettingsSlot;

    /// Doesn't change as long as objects have it. The last bits of its address are free.
    struct alignas(8) Block
    {
        std::shared_ptr<Logger> logger;
        std::shared_ptr<VersionConverterProxy> converter;
        std::atomic<int> references = 1;
    };

    // The address of the block with flags in its last bits.
    static constexpr std::uintptr_t LOCKED = 1;
    static constexpr std::uintptr_t NOT_VALIDATING = 2;
    static constexpr std::uintptr_t HAS_CONVERTER = 4;
    static constexpr std::uintptr_t FLAGS = LOCKED | NOT_VALIDATING | HAS_CONVERTER;
    static constexpr std::uintptr_t NONE = HAS_CONVERTER;

    static bool HasBlock(std::uintptr_t word) { return (word & ~FLAGS) != 0; }

    /// Takes over what the word holds.
    explicit ObjectSettings(std::uintptr_t word) : m_word(word) {}

    static Block& BlockOf(std::uintptr_t word)
    {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the word was made of this address
        return *reinterpret_cast<Block*>(word & ~FLAGS);
    }
    Block& TheBlock() const { return BlockOf(m_word); }
    void Retain() const
    {
        if (HasBlock(m_word))
            TheBlock().references.fetch_add(1, std::memory_order_relaxed);
    }
    void Release() const
    {
        if (HasBlock(m_word))
            ReleaseBlock(m_word);
    }
    /// Apart from the question whether there is one, which is small enough to stand wherever settings go.
    Q_NEVER_INLINE static void ReleaseBlock(std::uintptr_t word)
    {
        if (BlockOf(word).references.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete &BlockOf(word);
    }

    std::uintptr_t m_word = 0;
};

/// The word in which an object keeps its settings. Threads may ask for them and replace them at the same time:
/// who follows the address locks the word by a bit for that moment.
class SettingsSlot
{
public:
    using Word = std::atomic<std::uintptr_t>;

    /// What a word holds that holds no settings.
    static constexpr std::uintptr_t NONE = ObjectSettings::NONE;

    explicit SettingsSlot(Word& word) : m_word(word) {}

    bool Validates() const { return (Load() & ObjectSettings::NOT_VALIDATING) == 0; }
    bool HasLoggerOrConverter() const { return ObjectSettings::HasBlock(Load()); }
    bool HasConverter() const { return (Load() & ObjectSettings::HAS_CONVERTER) != 0; }
    bool IsNone() const { return Load() == ObjectSettings::NONE; }
    bool IsFirst() const { return Load() == 0; } ///< those of a new object
    bool Holds(const ObjectSettings& settings) const { return Load() == settings.m_word; }
    bool HoldsSameAs(SettingsSlot other) const { return Load() == other.Load(); }

    /// Whether it holds settings with that flag, looking once: another thread may take them away.
    bool HoldsFlag(bool validate) const
    {
        const std::uintptr_t word = Load();
        return word != NONE && ((word & ObjectSettings::NOT_VALIDATING) == 0) == validate;
    }

    /// Two that are equal held the same; where somebody locks one, two that hold the same may differ.
    std::uintptr_t Now() const { return m_word.load(std::memory_order_acquire); }

    ObjectSettings Get() const
    {
        const std::uintptr_t word = Load();
        return ObjectSettings::HasBlock(word) ? GetRetained() : ObjectSettings(word);
    }

    /// Puts the settings into a word that nobody else uses, as in an object that is made or destroyed, and
    /// where an exchange would cost more than all the rest.
    void SetAlone(ObjectSettings settings) const
    {
        const std::uintptr_t word = m_word.load(std::memory_order_acquire);
        m_word.store(settings.m_word, std::memory_order_release);
        settings.m_word = word;
    }

    void Set(ObjectSettings settings) const
    {
        std::uintptr_t word = Load();
        while (!Exchange(word, settings.m_word)) {
        }
        settings.m_word = word;
    }

    /// Replaces the settings by what `change` makes of them.
    template <class Change>
    Q_NEVER_INLINE void Replace(Change&& change) const
    {
        while (true) {
            const ObjectSettings before = Get();
            ObjectSettings after = change(before);
            std::uintptr_t word = before.m_word;
            if (Exchange(word, after.m_word)) {
                after.m_word = word;
                return;
            }
        }
    }

    /// Replaces the settings and calls `meanwhile`, with nobody in between, if they still are what they were.
    template <class Meanwhile>
    bool SetIfStill(const ObjectSettings& before, ObjectSettings settings, Meanwhile&& meanwhile) const
    {
        std::uintptr_t word = Lock();
        if (word != before.m_word) {
            Unlock(word);
            return false;
        }
        meanwhile();
        Unlock(settings.m_word);
        settings.m_word = word;
        return true;
    }

private:
    std::uintptr_t Load() const { return m_word.load(std::memory_order_acquire) & ~ObjectSettings::LOCKED; }

    /// Returns false, with what is there instead, when it isn't `word`.
    bool Exchange(std::uintptr_t& word, std::uintptr_t other) const
    {
        if (m_word.compare_exchange_strong(word, other, std::memory_order_acq_rel))
            return true;
        LetUnlock(word);
        return false;
    }

    /// Takes the bit off; before, lets whoever has set it go on.
    static void LetUnlock(std::uintptr_t& word)
    {
        if ((word & ObjectSettings::LOCKED) == 0)
            return;
        std::this_thread::yield();
        word &= ~ObjectSettings::LOCKED;
    }

    std::uintptr_t Lock() const
    {
        std::uintptr_t word = Load();
        while (!Exchange(word, word | ObjectSettings::LOCKED)) {
        }
        return word;
    }
    void Unlock(std::uintptr_t word) const { m_word.store(word, std::memory_order_release); }

    ObjectSettings GetRetained() const
    {
        const std::uintptr_t word = Lock();
        ObjectSettings settings(word);
        settings.Retain();
        Unlock(word);
        return settings;
    }

    Word& m_word;
};

} // namespace REPORTGENERATOR

#endif
