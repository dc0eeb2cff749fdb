// Rows of operations on objects of the plain classes, which have one way only, beside objects of a subclass that changes
// nothing: what may tell them apart is what asks for the class, such as merging.

#include "support/composedinput.h"
#include "support/expect.h"
#include "support/paths.h"
#include "support/plainclasses.h"
#include "support/scratchfile.h"
#include "support/sequences.h"

#include <gtest/gtest.h>

#include <QtCore/QXmlStreamWriter>

#include <array>
#include <string>
#include <utility>

namespace {

using Support::Choices;
using Support::CodePath;
using Support::Sample;
using Support::Steps;
using Support::StreamPathOnly;

/// Two objects of `Class`, which is T or its subclass, and what can be done with them.
template <class T, class Class>
class Pair
{
public:
    explicit Pair(CodePath& codePath) : m_path(codePath) {}

    void Take(Choices choices)
    {
        m_path.Transcript().Heading("step");
        Class& object = m_objects[static_cast<std::size_t>(choices.Below(2))];
        m_path.Attempt("operation", [&] { Do(choices.Below(OPERATIONS), object, choices); });
        for (const Class& each : m_objects)
            NoteState(each);
    }

private:
    static constexpr int OPERATIONS = 16;

    T& Plain(std::size_t number) { return m_objects[number]; }

    void Do(int operation, Class& object, Choices& choices)
    {
        T& plain = object;
        switch (operation) {
        case 0:
            plain = Sample<T>::Filled();
            break;
        case 1:
            plain = Sample<T>::Refused();
            break;
        case 2:
            object.Reset();
            break;
        case 3:
            object.SetValidate(choices.Below(2) == 1);
            break;
        case 4:
            object.SetLogger(m_path.Logger(choices.Below(CodePath::LOGGERS + 1) - 1));
            break;
        case 5:
            object.ResetLogger();
            break;
        case 6:
            object.Check();
            break;
        case 7:
            Plain(0) = Plain(1);
            break;
        case 8:
            std::swap(Plain(0), Plain(1));
            break;
        case 9:
            m_path.Note("merged", m_objects[0].MergeRGObject(m_objects[1]));
            break;
        case 10:
            m_path.Note("taken", object.SetXmlString(Written(choices), choices.OneIn(3)));
            break;
        case 11:
            Support::WriteScratch(Written(choices).toUtf8());
            m_path.Note("loaded", object.LoadXml(Support::ScratchPath()));
            break;
        case 12:
            m_path.Note("saved", object.SaveXml(Support::ScratchPath()));
            m_path.Note("file", Support::ReadScratch());
            break;
        case 13:
            m_path.Note("bytes", object.GetBinaryRepresentationAsQByteArray());
            break;
        case 14: {
            QByteArray bytes("\0\0\0\22\0I\0R\0G\0O\0b\0j\0e\0c\0t", 22);
            m_path.Note("taken", object.SetBinaryRepresentation(bytes));
            break;
        }
        default: {
            const T copy(plain);
            plain = T();
            plain = copy;
            break;
        }
        }
    }

    /// What an object with everything set writes, or what one of these does; whole or damaged.
    QString Written(Choices& choices)
    {
        const T filled = Sample<T>::Filled();
        const T& source = choices.Below(2) == 0 ? filled : Plain(1);
        const QString text = source.GetXmlString();
        return choices.Below(2) == 0 ? text : Support::Mutated(text, choices);
    }

    void NoteState(const Class& object)
    {
        Support::NoteSettings(m_path.Transcript(), object);
        m_path.Note("version", object.GetVersion());
        m_path.Note("any data", object.AnyData());
        m_path.Note("has data", object.HasData());
        QString text;
        QXmlStreamWriter writer(&text);
        T copy(object);
        copy.SetLogger(nullptr);
        copy.SetValidate(false);
        m_path.Attempt("text", [&] { copy.GetXml(writer); });
        m_path.Note("text", text);
    }

    CodePath& m_path;
    std::array<Class, 2> m_objects;
};

template <class T, class Class>
std::string Taken(const Steps& steps)
{
    CodePath codePath(Support::Way::Plain);
    const Support::QtMessages messages(codePath.Transcript());
    Pair<T, Class> pair(codePath);
    for (const Choices& step : steps)
        pair.Take(step);
    return codePath.Transcript().Text();
}

template <class T>
class PlainSequences : public Support::PlainClassTest<T>
{
};

TYPED_TEST_SUITE(PlainSequences, Support::PlainClasses, Support::PlainClassNames);

TYPED_TEST(PlainSequences, ComeToTheSameOfASubclass)
{
    constexpr quint64 SEQUENCES = 60;
    for (quint64 seed = 1; seed <= SEQUENCES; ++seed) {
        const Steps steps = Support::SequenceOfSeed(seed);
        ASSERT_EQ(Support::DifferenceOf(Taken<TypeParam, StreamPathOnly<TypeParam>>(steps),
                                        Taken<TypeParam, TypeParam>(steps)),
                  "")
            << "seed " << seed;
    }
}

} // namespace
