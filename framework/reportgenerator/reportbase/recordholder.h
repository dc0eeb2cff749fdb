#ifndef REPORTGENERATOR_RECORDHOLDER_H
#define REPORTGENERATOR_RECORDHOLDER_H

#include <QtCore/QSharedDataPointer>

namespace REPORTGENERATOR {

/// What a record begins with.
struct Record
{
    /// A bit for each field that says whether it is set. The byte is also the first one of the raw form, read
    /// back as it stands: bits that belong to no field are kept and mean nothing.
    quint8 flags = 0;

    /// Whether a record that stands in its object has been made.
    bool isMade = false;
};

/// A record of a few numbers, which stands in its object.
template <class Data>
class OwnRecord
{
public:
    /// Null until the record is made.
    const Data* Get() const { return m_data.isMade ? &m_data : nullptr; }
    Data& Own() { return m_data; }
    void Make() { m_data.isMade = true; }

private:
    Data m_data;
};

/// A record that copies share until one of them takes it private.
template <class Data>
class SharedRecord
{
public:
    const Data* Get() const { return m_data.constData(); }
    Data& Own() { return *m_data; }
    void Make() { m_data = new Data; }

private:
    QSharedDataPointer<Data> m_data;
};

} // namespace REPORTGENERATOR

#endif
