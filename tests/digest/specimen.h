#ifndef TESTS_DIGEST_SPECIMEN_H
#define TESTS_DIGEST_SPECIMEN_H

// An object of any class with what the digests need of it.

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <QtCore/QDataStream>

#include <memory>
#include <type_traits>

namespace Digest {

class Specimen
{
public:
    Specimen() = default;
    virtual ~Specimen();
    Specimen(const Specimen&) = delete;
    Specimen& operator=(const Specimen&) = delete;

    virtual REPORTGENERATOR::IRGObject& Object() = 0;
    virtual const REPORTGENERATOR::IRGObject& Object() const = 0;

    /// An object without data that finds what this one has written.
    virtual std::unique_ptr<Specimen> New() const = 0;

    virtual bool HasBinaryForms() const = 0;
    virtual void WriteRaw(QDataStream& stream) const = 0;
    virtual void ReadRaw(QDataStream& stream) = 0;
};

template <class T>
class SpecimenOf : public Specimen
{
public:
    SpecimenOf() = default;
    explicit SpecimenOf(const T& object) : m_object(object) {}

    T& Object() override { return m_object; }
    const T& Object() const override { return m_object; }

    std::unique_ptr<Specimen> New() const override
    {
        auto fresh = std::make_unique<SpecimenOf<T>>();
        // Their element bears the name that they are given.
        if constexpr (std::is_same_v<T, REPORTGENERATOR::Double> ||
                      std::is_same_v<T, REPORTGENERATOR::ValueMinMax>)
            fresh->m_object.SetName(m_object.GetName());
        return fresh;
    }

    bool HasBinaryForms() const override { return HAS_BINARY_FORMS; }

    void WriteRaw(QDataStream& stream) const override
    {
        if constexpr (HAS_BINARY_FORMS)
            m_object.GetVersionSpecificBinaryWithoutValidation(stream);
        else
            stream.setStatus(QDataStream::WriteFailed);
    }

    void ReadRaw(QDataStream& stream) override
    {
        if constexpr (HAS_BINARY_FORMS)
            m_object.SetVersionSpecificBinaryWithoutValidation(stream);
        else
            stream.setStatus(QDataStream::ReadCorruptData);
    }

private:
    static constexpr bool HAS_BINARY_FORMS =
        std::is_same_v<T, REPORTGENERATOR::ReportBase> || std::is_same_v<T, REPORTGENERATOR::Area> ||
        std::is_same_v<T, REPORTGENERATOR::Coordinate> || std::is_same_v<T, REPORTGENERATOR::Frequency> ||
        std::is_same_v<T, REPORTGENERATOR::IFBandwidth>;

    T m_object;
};

} // namespace Digest

#endif
