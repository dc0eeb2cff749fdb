// The golden vectors of every form with bits changed, cut off, and with numbers at the edges of their range,
// read with and without validation: what comes is an outcome of the library, within the memory that the input
// allows, and the object reads the intact vector afterwards.

#include "support/allocations.h"
#include "support/expect.h"
#include "support/subject.h"
#include "support/vectors.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QtEndian>

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using Support::Allocations;
using Support::Subject;

/// A file of tests/vectors, as input.
struct Input
{
    QString path;
    QByteArray bytes;

    bool IsXml() const { return path.endsWith(QLatin1String(".xml")); }
    bool IsRaw() const { return path.endsWith(QLatin1String(".raw.hex")); }
    bool IsCompressed() const { return path.endsWith(QLatin1String(".zhex")); }

    std::unique_ptr<Subject> NewSubject() const
    {
        return Support::NewSubject(path.section(QLatin1Char('/'), 0, 0));
    }

    /// What reading other bytes in this form may take. Compressed data are unpacked whole.
    qint64 Limit(const QByteArray& other) const
    {
        constexpr qint64 MEGABYTE = 1 << 20;
        return MEGABYTE + other.size() * qint64(IsCompressed() ? 2 * 1032 : 64);
    }

    /// Reads bytes as those of the file are read. An exception that is none of the library's passes out.
    void Read(Subject& subject, const QByteArray& other) const
    {
        try {
            if (IsXml()) {
                subject.Object().SetXmlString(QString::fromUtf8(other), false);
            } else if (IsRaw()) {
                QDataStream stream(other);
                stream.setVersion(QDataStream::Qt_4_6);
                subject.ReadRaw(stream);
            } else {
                QByteArray representation = other;
                subject.Object().SetBinaryRepresentation(representation);
            }
        } catch (const RGException& exception) {
            EXPECT_FALSE(exception.GetErrorName().isEmpty());
        }
    }
};

std::vector<Input> Inputs()
{
    std::vector<Input> inputs;
    for (const QString& path : Support::VectorFiles()) {
        if (path.endsWith(QLatin1String(".xml")))
            inputs.push_back({path, Support::LoadXmlVector(path).toUtf8()});
        else if (path.endsWith(QLatin1String("hex")))
            inputs.push_back({path, Support::LoadVector(path).Data()});
    }
    return inputs;
}

/// Reads damaged input, and the intact one into the same object.
class Trial
{
public:
    explicit Trial(const Input& input) : m_input(input)
    {
        const auto subject = input.NewSubject();
        subject->Object().SetValidate(false);
        input.Read(*subject, input.bytes);
        m_intact = DescriptionOf(*subject);
    }

    void Run(const QByteArray& damaged, bool validate, const std::string& place) const
    {
        const auto subject = m_input.NewSubject();
        subject->Object().SetValidate(validate);
        {
            const Allocations allocations;
            m_input.Read(*subject, damaged);
            if (Allocations::AreCounted() && allocations.Peak() > m_input.Limit(damaged))
                ADD_FAILURE() << m_input.path.toStdString() << ", " << place << " took "
                              << allocations.Peak();
        }
        subject->Object().SetValidate(false);
        subject->Object().Reset();
        m_input.Read(*subject, m_input.bytes);
        const std::string description = DescriptionOf(*subject);
        if (description != m_intact)
            ADD_FAILURE() << m_input.path.toStdString() << ", " << place << " left\n"
                          << description << "instead of\n"
                          << m_intact;
    }

private:
    /// Without the version, which stays known when input brings none.
    static std::string DescriptionOf(const Subject& subject)
    {
        std::string description = subject.Description();
        const auto version = description.find("initial version loaded");
        if (version != std::string::npos)
            description.erase(version, description.find('\n', version) - version);
        return description;
    }

    const Input& m_input;
    std::string m_intact;
};

constexpr int BITS = 8;

/// Each byte has so many of its bits changed, the next one the next ones. With 8 it is every bit, which takes
/// a minute.
constexpr int BITS_TRIED = 1;

TEST(DamagedVectors, WithChangedBitsLeaveTheObjectUsable)
{
    int tried = 0;
    for (const Input& input : Inputs()) {
        const Trial trial(input);
        for (int place = 0; place < input.bytes.size(); ++place) {
            for (int i = 0; i < BITS_TRIED; ++i) {
                for (const bool validate : {false, true}) {
                    const int bit = (place * BITS_TRIED + i + (validate ? BITS / 2 : 0)) % BITS;
                    QByteArray changed = input.bytes;
                    changed[place] = static_cast<char>(changed.at(place) ^ (1 << bit));
                    trial.Run(changed, validate,
                              "bit " + std::to_string(bit) + " of " + std::to_string(place));
                    ++tried;
                }
            }
        }
    }
    EXPECT_GT(tried, 20000);
    RecordProperty("bits", tried);
}

TEST(DamagedVectors, CutOffAnywhereLeaveTheObjectUsable)
{
    int tried = 0;
    for (const Input& input : Inputs()) {
        const Trial trial(input);
        for (int size = 0; size < input.bytes.size(); ++size) {
            trial.Run(input.bytes.left(size), size % 2 == 0, "cut off after " + std::to_string(size));
            ++tried;
        }
    }
    EXPECT_GT(tried, 10000);
    RecordProperty("cuts", tried);
}

/// Lengths, sizes and counts that no field has, and those that are taken for something else.
TEST(DamagedVectors, WithNumbersAtTheEdgesLeaveTheObjectUsable)
{
    constexpr int LEAST = std::numeric_limits<int>::min();
    constexpr int GREATEST = std::numeric_limits<int>::max();
    constexpr int NUMBERS[] = {
        0,  1,     7,         8,         9,        -1,           -2,           -4,           -7,     -8,
        -9, LEAST, LEAST + 1, LEAST + 8, GREATEST, GREATEST - 1, GREATEST - 8, GREATEST / 2, 1 << 16};
    int tried = 0;
    for (const Input& input : Inputs()) {
        if (input.IsXml())
            continue;
        const Trial trial(input);
        for (const Support::Field& field : Support::LoadVector(input.path).fields) {
            if (field.kind != "length" && field.kind != "size" && field.kind != "count" &&
                field.kind != "prefix")
                continue;
            for (const int number : NUMBERS) {
                for (const bool validate : {false, true}) {
                    QByteArray changed = input.bytes;
                    qToBigEndian(number, changed.data() + field.offset);
                    trial.Run(changed, validate,
                              std::to_string(number) + " for " + field.kind + " at " +
                                  std::to_string(field.offset));
                    ++tried;
                }
            }
        }
    }
    EXPECT_GT(tried, 10000);
    RecordProperty("numbers", tried);
}

} // namespace
