#ifndef TESTS_SUPPORT_SUBJECT_H
#define TESTS_SUPPORT_SUBJECT_H

// An object of any class with what all classes can do, for tests that run over all of them.
//
//     std::unique_ptr<Subject> subject = NewSubject(QStringLiteral("frequency"));   // a folder of
//     tests/vectors subject->Object().SetBinaryRepresentation(bytes); std::string held =
//     subject->Description();

#include "support/states.h"

#include <reportgenerator/reportbase/irgobject.h>

#include <QtCore/QString>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

class QDataStream;

namespace Support {

class Subject
{
public:
    Subject() = default;
    virtual ~Subject();
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

    virtual REPORTGENERATOR::IRGObject& Object() = 0;

    /// What the getters say, as text.
    virtual std::string Description() const = 0;

    /// operator== of the class; it and operator!= have to contradict each other.
    virtual bool Equals(const Subject& other) const = 0;

    virtual bool HasBinaryForms() const = 0;
    virtual void WriteRaw(QDataStream& stream) const = 0;
    virtual void ReadRaw(QDataStream& stream) = 0;
};

template <class T>
class SubjectOf : public Subject
{
public:
    using State = decltype(StateOf(std::declval<const T&>()));

    SubjectOf() = default;

    /// An object with these fields, which validates from the start or never.
    SubjectOf(const State& state, bool validate)
    {
        m_object.SetValidate(validate);
        Fill(m_object, state);
    }

    REPORTGENERATOR::IRGObject& Object() override { return m_object; }
    std::string Description() const override { return Describe(StateOf(m_object)); }

    bool Equals(const Subject& other) const override
    {
        const T& object = dynamic_cast<const SubjectOf&>(other).m_object;
        const bool isEqual = m_object == object;
        if (isEqual == (m_object != object))
            throw std::logic_error("operator== and operator!= agree");
        return isEqual;
    }

    bool HasBinaryForms() const override { return HAS_BINARY_FORMS; }

    void WriteRaw(QDataStream& stream) const override
    {
        if constexpr (HAS_BINARY_FORMS)
            m_object.GetVersionSpecificBinaryWithoutValidation(stream);
        else
            throw std::logic_error("no raw form");
    }

    void ReadRaw(QDataStream& stream) override
    {
        if constexpr (HAS_BINARY_FORMS)
            m_object.SetVersionSpecificBinaryWithoutValidation(stream);
        else
            throw std::logic_error("no raw form");
    }

private:
    static constexpr bool HAS_BINARY_FORMS = !std::is_same_v<T, REPORTGENERATOR::Double>;

    T m_object;
};

/// A new object of the class whose vectors stand in `folder`, for example "ifbandwidth".
std::unique_ptr<Subject> NewSubject(const QString& folder);

} // namespace Support

#endif
