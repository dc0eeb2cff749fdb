#ifndef REPORTGENERATOR_RECORDHOLDER_H
#define REPORTGENERATOR_RECORDHOLDER_H

#include <QtCore/QtGlobal>

#include <atomic>
#include <memory>
#include <utility>

namespace REPORTGENERATOR {

/// Whether a record that stands in its object has been made, which threads may do at the same time.
class MadeFlag
{
public:
    MadeFlag() = default;
    MadeFlag(const MadeFlag& other) : m_isMade(other.IsMade()) {}
    MadeFlag& operator=(const MadeFlag& other)
    {
        m_isMade.store(other.IsMade(), std::memory_order_relaxed);
        return *this;
    }
    ~MadeFlag() = default;

    /// Nothing else has to be seen with it: a record that is made holds what it held before.
    bool IsMade() const { return m_isMade.load(std::memory_order_relaxed); }
    void Make() { m_isMade.store(true, std::memory_order_relaxed); }

private:
    std::atomic<bool> m_isMade{false};
};

/// What a record begins with.
struct Record
{
    /// A bit for each field that says whether it is set. The byte is also the first one of the raw form, read
    /// back as it stands: bits that belong to no field are kept and mean nothing.
    quint8 flags = 0;

    /// Of a record that stands in its object.
    MadeFlag made;
};

// Making a record is all that const operations do to it. Several threads may do so at the same time.

/// A record of a few numbers, which stands in its object.
template <class Data>
class OwnRecord
{
public:
    /// Null until the record is made.
    const Data* Get() const { return m_data.made.IsMade() ? &m_data : nullptr; }
    Data& Own() { return m_data; }

    /// `prepare` is for members, which there are none of.
    template <class Prepare>
    void Make(Prepare&& /*prepare*/)
    {
        m_data.made.Make();
    }

    /// The record that there is. It stays where it is.
    class Hold
    {
    public:
        explicit Hold(const OwnRecord& storage) : m_data(storage.m_data) {}
        const Data& operator*() const { return m_data; }

    private:
        const Data& m_data;
    };

private:
    Data m_data;
};

/// A record that stands apart from its object. It belongs to this object alone: what copies share is within.
template <class Data>
class SharedRecord
{
    struct CountedData : Data
    {
        CountedData() = default;
        explicit CountedData(const Data& other) : Data(other) {}

        /// The object and the operations that hold the record.
        std::atomic<int> holders{1};
    };

    static void Release(Data* data)
    {
        auto* const counted = static_cast<CountedData*>(data);
        if (counted && counted->holders.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete counted;
    }

public:
    SharedRecord() = default;
    SharedRecord(const SharedRecord& other) : m_data(other.NewCopy()) {}
    SharedRecord& operator=(const SharedRecord& other)
    {
        if (this != &other)
            Release(m_data.exchange(other.NewCopy(), std::memory_order_acq_rel));
        return *this;
    }
    ~SharedRecord() { Release(m_data.load(std::memory_order_acquire)); }

    /// Null until the record is made.
    const Data* Get() const { return m_data.load(std::memory_order_acquire); }
    Data& Own() { return *m_data.load(std::memory_order_acquire); }

    /// `prepare` is given the record before anybody else sees it.
    template <class Prepare>
    void Make(Prepare&& prepare)
    {
        if (!Get())
            MakeNew(prepare);
    }

    /// The record that there is, kept while others are called: they may give the object another one.
    class Hold
    {
    public:
        explicit Hold(const SharedRecord& storage) : m_data(storage.m_data.load(std::memory_order_acquire))
        {
            static_cast<CountedData*>(m_data)->holders.fetch_add(1, std::memory_order_relaxed);
        }
        ~Hold() { Release(m_data); }
        Hold(const Hold& other) = delete;
        Hold& operator=(const Hold& other) = delete;

        const Data& operator*() const { return *m_data; }

    private:
        Data* m_data;
    };

private:
    template <class Prepare>
    void MakeNew(Prepare& prepare)
    {
        auto made = std::make_unique<CountedData>();
        prepare(*made);
        Data* none = nullptr;
        if (m_data.compare_exchange_strong(none, made.get(), std::memory_order_acq_rel))
            made.release(); // NOLINT(bugprone-unused-return-value): the holder has it now
    }

    Data* NewCopy() const
    {
        const Data* data = Get();
        return data ? new CountedData(*data) : nullptr;
    }

    std::atomic<Data*> m_data{nullptr};
};

} // namespace REPORTGENERATOR

#endif
