// Every bit of every tag, length, size and count of the plain vectors changed, every vector cut off after
// every byte. Whatever comes out, the object stays usable; where the format determines what comes out, it is
// compared.

#include "support/bodymodel.h"
#include "support/bytes.h"
#include "support/expect.h"
#include "support/subject.h"
#include "support/vectors.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Support::Field;
using Support::Subject;
using Support::Vector;

constexpr int STREAM_VERSION = 12;
constexpr int BITS_OF_NUMBER = 32;
constexpr int SIGN_BIT = 31;

// The fields of every plain representation: marker and name with their sizes, root tag, root length.
constexpr std::size_t MARKER_TEXT = 1;
constexpr std::size_t ROOT_TAG = 4;
constexpr std::size_t ROOT_LENGTH = 5;

// In a compressed one the size of the data and the prefix with their uncompressed length come after the name.
constexpr std::size_t PREFIX = 5;

const QLatin1String LENGTH_ERROR("BinaryParsingException");

// --- What happened ----------------------------------------------------------------------------------------

struct Result
{
    bool isAccepted = false; ///< what the reader returned, false when it threw
    QString error;           ///< name of the exception, empty when there was none
    QString errorText;
    bool isLogged = false;

    std::string Shown() const
    {
        if (!error.isEmpty())
            return error.toStdString() + ": " + errorText.toStdString();
        return isAccepted ? "accepted" : "refused";
    }
};

/// Runs a reader. An exception that is none of the library's passes out and fails the test.
Result Attempt(Subject& subject, const std::function<bool(Subject&)>& read)
{
    const std::shared_ptr<REPORTGENERATOR::ListLogger> logger = Support::NewLogger(REPORTGENERATOR::ERROR);
    subject.Object().SetLogger(logger);
    Result result;
    try {
        result.isAccepted = read(subject);
    } catch (const RGException& exception) {
        result.error = exception.GetErrorName();
        result.errorText = exception.GetErrorText();
    }
    result.isLogged = logger->HasErrors();
    subject.Object().SetLogger(nullptr);
    return result;
}

Result ReadRepresentation(Subject& subject, const QByteArray& bytes)
{
    return Attempt(subject, [&bytes](Subject& target) {
        QByteArray input = bytes;
        return target.Object().SetBinaryRepresentation(input);
    });
}

Result ReadRaw(Subject& subject, const QByteArray& bytes)
{
    return Attempt(subject, [&bytes](Subject& target) {
        QDataStream stream(bytes);
        stream.setVersion(STREAM_VERSION);
        target.ReadRaw(stream);
        return true;
    });
}

std::unique_ptr<Subject> NewSubject(const QString& folder, bool validate)
{
    std::unique_ptr<Subject> subject = Support::NewSubject(folder);
    subject->Object().SetValidate(validate);
    return subject;
}

// --- The vectors ------------------------------------------------------------------------------------------

QString FolderOf(const Vector& vector)
{
    return vector.path.section(QLatin1Char('/'), 0, 0);
}

bool IsFlat(const QString& folder)
{
    return folder != QLatin1String("area") && folder != QLatin1String("reportbase");
}

/// The vectors of one form: those that the library writes itself, and with `all` the others too.
std::vector<Vector> VectorsOfForm(const char* form, bool all)
{
    const QString ending = QLatin1Char('.') + QLatin1String(form);
    std::vector<Vector> vectors;
    for (const QString& path : Support::VectorFiles()) {
        const QString file = path.section(QLatin1Char('/'), -1);
        const bool isOfForm =
            file.indexOf(QLatin1Char('.')) == file.size() - ending.size() && file.endsWith(ending);
        if (isOfForm && (all || path.count(QLatin1Char('/')) == 1))
            vectors.push_back(Support::LoadVector(path));
    }
    return vectors;
}

/// Those that hold other objects, and of the others, whose outcomes are all predicted, the fullest of each
/// class.
std::vector<Vector> VectorsWorthUsingAfterwards()
{
    std::vector<Vector> worth;
    for (Vector& vector : VectorsOfForm("hex", false)) {
        const QString folder = FolderOf(vector);
        const bool isAnother = worth.empty() || FolderOf(worth.back()) != folder;
        if (isAnother || !IsFlat(folder))
            worth.push_back(std::move(vector));
        else if (vector.fields.size() > worth.back().fields.size())
            worth.back() = std::move(vector);
    }
    return worth;
}

QByteArray WithBitChanged(const QByteArray& bytes, const Field& field, int bit)
{
    QByteArray changed = bytes;
    const int index = field.offset + 3 - bit / 8;
    changed[index] = static_cast<char>(changed.at(index) ^ (1 << (bit % 8)));
    return changed;
}

bool IsNumber(const Field& field)
{
    return field.kind == "tag" || field.kind == "length" || field.kind == "size" || field.kind == "count";
}

/// Runs `examine` for every number of the vector and every bit of it.
void ForEachChangedBit(
    const Vector& vector,
    const std::function<void(std::size_t index, int bit, const QByteArray& changed)>& examine)
{
    const QByteArray bytes = vector.Data();
    for (std::size_t index = 0; index < vector.fields.size(); ++index) {
        if (!IsNumber(vector.fields[index]))
            continue;
        for (int bit = 0; bit < BITS_OF_NUMBER; ++bit)
            examine(index, bit, WithBitChanged(bytes, vector.fields[index], bit));
    }
}

std::string Where(const Vector& vector, std::size_t index, int bit)
{
    const Field& field = vector.fields[index];
    return vector.path.toStdString() + ": bit " + std::to_string(bit) + " of " + field.kind + " '" +
           field.meaning + "' at offset " + std::to_string(field.offset);
}

std::string Where(const Vector& vector, int size)
{
    return vector.path.toStdString() + ": cut off after " + std::to_string(size) + " bytes";
}

/// Names the place after a failure. A SCOPED_TRACE would spend more time on its text than the test on its
/// work.
class Place
{
public:
    Place(const Vector& vector, std::size_t index, int bit) : m_vector(vector), m_index(index), m_bit(bit) {}
    Place(const Vector& vector, int size) : m_vector(vector), m_size(size) {}
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    ~Place()
    {
        if (Failures() > m_failures)
            ADD_FAILURE() << "at "
                          << (m_size < 0 ? Where(m_vector, m_index, m_bit) : Where(m_vector, m_size));
    }

private:
    static int Failures()
    {
        return ::testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
    }

    const Vector& m_vector;
    std::size_t m_index = 0;
    int m_bit = 0;
    int m_size = -1;
    int m_failures = Failures();
};

// --- What the format says ---------------------------------------------------------------------------------

QString LengthErrorText(const QString& className)
{
    return className +
           QLatin1String(
               "::SetBinary(...): Length error occurred during processing of binary representation");
}

void ExpectPredicted(const QString& folder, const QByteArray& bytes)
{
    const std::unique_ptr<Subject> subject = NewSubject(folder, false);
    const Result result = ReadRepresentation(*subject, bytes);
    const Support::Prediction prediction = Support::PredictedFor(folder, bytes);

    EXPECT_EQ(result.isAccepted, prediction.isAccepted) << result.Shown();
    EXPECT_EQ(result.error == LENGTH_ERROR, prediction.hasLengthError) << result.Shown();
    if (prediction.hasLengthError) {
        EXPECT_TEXT(result.errorText, LengthErrorText(subject->Object().GetObjectName()));
    }
    EXPECT_EQ(subject->Description(), prediction.description);
}

// --- What holds for every input ---------------------------------------------------------------------------

bool IsKnownError(const Result& result, bool validate)
{
    if (result.error.isEmpty() || result.error == LENGTH_ERROR)
        return true;
    return validate && (result.error == QLatin1String("OutOfRangeException") ||
                        result.error == QLatin1String("IncompleteDefinitionException"));
}

/// The object can be written as it stands, reset, and filled from intact data again.
void ExpectUsable(Subject& subject, const QByteArray& intact, const std::string& intactDescription)
{
    subject.Object().SetValidate(false);
    QByteArray asItStands = subject.Object().GetBinaryRepresentationAsQByteArray();
    const std::unique_ptr<Subject> copy = NewSubject(subject.Object().GetObjectName().toLower(), false);
    EXPECT_TRUE(copy->Object().SetBinaryRepresentation(asItStands));
    EXPECT_BYTES(copy->Object().GetBinaryRepresentationAsQByteArray(), asItStands);

    subject.Object().Reset();
    QByteArray again = intact;
    EXPECT_TRUE(subject.Object().SetBinaryRepresentation(again));
    EXPECT_EQ(subject.Description(), intactDescription);
}

/// Reads corrupted bytes with and without validation.
class Examination
{
public:
    explicit Examination(const Vector& vector)
        : m_folder(FolderOf(vector)), m_intact(vector.Data()),
          m_empty(NewSubject(m_folder, false)->Description())
    {
        const std::unique_ptr<Subject> subject = NewSubject(m_folder, false);
        m_intactResult = ReadRepresentation(*subject, m_intact);
        m_intactDescription = subject->Description();
    }

    const QString& Folder() const { return m_folder; }
    const std::string& Empty() const { return m_empty; }
    const std::string& IntactDescription() const { return m_intactDescription; }
    const Result& IntactResult() const { return m_intactResult; }

    void Run(const QByteArray& bytes) const
    {
        const bool fails = Fails(bytes, false);
        const bool failsValidating = Fails(bytes, true);
        EXPECT_TRUE(failsValidating || !fails) << "fails only without validation";
    }

private:
    bool Fails(const QByteArray& bytes, bool validate) const
    {
        const std::unique_ptr<Subject> subject = NewSubject(m_folder, validate);
        const Result result = ReadRepresentation(*subject, bytes);
        EXPECT_TRUE(IsKnownError(result, validate)) << result.Shown();
        EXPECT_EQ(result.isLogged, !result.error.isEmpty()) << result.Shown();
        // What fails without validation fails with it, so one of them is enough.
        if (validate && !result.isAccepted && m_intactResult.isAccepted && m_intactDescription != m_empty)
            ExpectUsable(*subject, m_intact, m_intactDescription);
        return !result.error.isEmpty();
    }

    QString m_folder;
    QByteArray m_intact;
    std::string m_empty;
    std::string m_intactDescription;
    Result m_intactResult;
};

/// A body is a length around elements; other lengths are around the value of a field.
bool IsBody(const Vector& vector, std::size_t index)
{
    const Field& field = vector.fields[index];
    return field.kind == "length" && index + 1 < vector.fields.size() &&
           vector.fields[index + 1].depth == field.depth + 1 && vector.fields[index + 1].kind == "tag";
}

bool ReachesTheEnd(const Vector& vector, std::size_t index)
{
    const Field& field = vector.fields[index];
    return field.offset + 4 + static_cast<int>(field.Number()) == vector.Data().size();
}

bool SetsBit(const Field& field, int bit)
{
    return (field.Number() >> bit & 1u) == 0;
}

} // namespace

TEST(Corruption, AChangedBitOfAFlatObjectGivesWhatTheFormatSays)
{
    int examined = 0;
    for (const Vector& vector : VectorsOfForm("hex", true)) {
        if (!IsFlat(FolderOf(vector)))
            continue;
        ForEachChangedBit(vector, [&](std::size_t index, int bit, const QByteArray& changed) {
            const Place place(vector, index, bit);
            ExpectPredicted(FolderOf(vector), changed);
            ++examined;
        });
    }
    EXPECT_GT(examined, 10000);
}

TEST(Corruption, AFlatObjectCutOffGivesWhatTheFormatSays)
{
    int examined = 0;
    for (const Vector& vector : VectorsOfForm("hex", true)) {
        if (!IsFlat(FolderOf(vector)))
            continue;
        const QByteArray bytes = vector.Data();
        for (int size = 0; size < bytes.size(); ++size) {
            const Place place(vector, size);
            ExpectPredicted(FolderOf(vector), bytes.left(size));
            ++examined;
        }
    }
    EXPECT_GT(examined, 3000);
}

TEST(Corruption, AChangedBitLeavesTheObjectUsable)
{
    for (const Vector& vector : VectorsWorthUsingAfterwards()) {
        const Examination examination(vector);
        ASSERT_TRUE(examination.IntactResult().isAccepted) << vector.path.toStdString();
        ForEachChangedBit(vector, [&](std::size_t index, int bit, const QByteArray& changed) {
            const Place place(vector, index, bit);
            examination.Run(changed);
        });
    }
}

TEST(Corruption, ACutLeavesTheObjectUsable)
{
    for (const Vector& vector : VectorsWorthUsingAfterwards()) {
        const Examination examination(vector);
        const QByteArray bytes = vector.Data();
        for (int size = 0; size < bytes.size(); ++size) {
            const Place place(vector, size);
            examination.Run(bytes.left(size));
        }
    }
}

TEST(Corruption, AChangedBitOfTheMarkerIsRefused)
{
    for (const Vector& vector : VectorsOfForm("hex", false)) {
        const QByteArray bytes = vector.Data();
        const Field& marker = vector.fields.at(MARKER_TEXT);
        const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), true);
        const std::string before = subject->Description();
        for (int bit = 0; bit < 8 * static_cast<int>(marker.bytes.size()); ++bit) {
            const Place place(vector, MARKER_TEXT, bit);
            QByteArray changed = bytes;
            const int index = marker.offset + bit / 8;
            changed[index] = static_cast<char>(changed.at(index) ^ (1 << (bit % 8)));
            const Result result = ReadRepresentation(*subject, changed);
            EXPECT_FALSE(result.isAccepted);
            EXPECT_TRUE(result.error.isEmpty()) << result.Shown();
            EXPECT_EQ(subject->Description(), before);
        }
    }
}

TEST(Corruption, AChangedBitOfTheRootTagChangesNothing)
{
    for (const Vector& vector : VectorsOfForm("hex", false)) {
        const Examination examination(vector);
        for (int bit = 0; bit < BITS_OF_NUMBER; ++bit) {
            const Place place(vector, ROOT_TAG, bit);
            const std::unique_ptr<Subject> subject = NewSubject(examination.Folder(), false);
            const QByteArray changed = WithBitChanged(vector.Data(), vector.fields.at(ROOT_TAG), bit);
            EXPECT_TRUE(ReadRepresentation(*subject, changed).isAccepted);
            EXPECT_EQ(subject->Description(), examination.IntactDescription());
        }
    }
}

TEST(Corruption, AChangedBitOfTheRootLengthIsALengthErrorUnlessItEndsBetweenElements)
{
    for (const Vector& vector : VectorsOfForm("hex", false)) {
        std::vector<std::int64_t> betweenElements = {0};
        for (std::size_t i = ROOT_LENGTH + 1; i < vector.fields.size(); ++i) {
            const Field& field = vector.fields[i];
            if (field.kind == "length" && field.depth == 1)
                betweenElements.push_back(betweenElements.back() + 8 + field.Number());
        }
        const Field& rootLength = vector.fields.at(ROOT_LENGTH);
        ASSERT_EQ(betweenElements.back(), static_cast<std::int64_t>(rootLength.Number()));

        for (int bit = 0; bit < BITS_OF_NUMBER; ++bit) {
            const Place place(vector, ROOT_LENGTH, bit);
            const std::uint32_t length = rootLength.Number() ^ (1u << bit);
            const bool isBetween =
                std::find(betweenElements.begin(), betweenElements.end(), length) != betweenElements.end();
            const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), false);
            const Result result =
                ReadRepresentation(*subject, WithBitChanged(vector.Data(), rootLength, bit));
            EXPECT_EQ(result.isAccepted, isBetween) << result.Shown();
            if (!isBetween) {
                EXPECT_TEXT(result.errorText, LengthErrorText(subject->Object().GetObjectName()));
            }
        }
    }
}

TEST(Corruption, ABodyLengthThatBecomesNegativeIsALengthError)
{
    int examined = 0;
    for (const Vector& vector : VectorsOfForm("hex", false)) {
        for (std::size_t i = 0; i < vector.fields.size(); ++i) {
            if (!IsBody(vector, i))
                continue;
            const Place place(vector, i, SIGN_BIT);
            const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), false);
            const Result result =
                ReadRepresentation(*subject, WithBitChanged(vector.Data(), vector.fields[i], SIGN_BIT));
            EXPECT_TEXT(result.error, LENGTH_ERROR);
            ++examined;
        }
    }
    EXPECT_GT(examined, 30);
}

TEST(Corruption, ABodyLengthThatGrowsBeyondTheEndIsALengthError)
{
    int examined = 0;
    for (const Vector& vector : VectorsOfForm("hex", false)) {
        for (std::size_t i = 0; i < vector.fields.size(); ++i) {
            if (!IsBody(vector, i) || !ReachesTheEnd(vector, i))
                continue;
            for (int bit = 0; bit < SIGN_BIT; ++bit) {
                if (!SetsBit(vector.fields[i], bit))
                    continue;
                const Place place(vector, i, bit);
                const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), false);
                const Result result =
                    ReadRepresentation(*subject, WithBitChanged(vector.Data(), vector.fields[i], bit));
                EXPECT_TEXT(result.error, LENGTH_ERROR);
                ++examined;
            }
        }
    }
    EXPECT_GT(examined, 1000);
}

TEST(Corruption, AnElementWhoseTagChangesIsSkippedAsIfItWereNotThere)
{
    int examined = 0;
    for (const Vector& vector : VectorsOfForm("hex", false)) {
        const QByteArray bytes = vector.Data();
        for (std::size_t i = ROOT_LENGTH + 1; i + 1 < vector.fields.size(); ++i) {
            const Field& tag = vector.fields[i];
            if (tag.kind != "tag" || tag.depth != 1)
                continue;
            const Field& rootLength = vector.fields.at(ROOT_LENGTH);
            const int size = 8 + static_cast<int>(vector.fields[i + 1].Number());
            QByteArray without = bytes.left(rootLength.offset);
            without += Support::Int32(static_cast<int>(rootLength.Number()) - size).Data();
            without += bytes.mid(rootLength.offset + 4, tag.offset - rootLength.offset - 4);
            without += bytes.mid(tag.offset + size);
            const std::unique_ptr<Subject> expected = NewSubject(FolderOf(vector), false);
            ASSERT_TRUE(ReadRepresentation(*expected, without).isAccepted);

            for (int bit = 0; bit < BITS_OF_NUMBER; ++bit) {
                const Place place(vector, i, bit);
                const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), false);
                EXPECT_TRUE(ReadRepresentation(*subject, WithBitChanged(bytes, tag, bit)).isAccepted);
                EXPECT_EQ(subject->Description(), expected->Description());
                ++examined;
            }
        }
    }
    EXPECT_GT(examined, 2000);
}

TEST(Corruption, ACountThatGrowsIsALengthErrorWithAndWithoutValidation)
{
    int examined = 0;
    for (const Vector& vector : VectorsOfForm("hex", false)) {
        for (std::size_t i = 0; i < vector.fields.size(); ++i) {
            if (vector.fields[i].kind != "count")
                continue;
            for (int bit = 0; bit < SIGN_BIT; ++bit) {
                if (!SetsBit(vector.fields[i], bit))
                    continue;
                const Place place(vector, i, bit);
                const QByteArray changed = WithBitChanged(vector.Data(), vector.fields[i], bit);
                const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), false);
                EXPECT_TEXT(ReadRepresentation(*subject, changed).error, LENGTH_ERROR);
                ++examined;
            }
        }
    }
    EXPECT_GT(examined, 200);
}

TEST(Corruption, ACompressedRepresentationCutOffReadsAsABodyOfNoElements)
{
    for (const Vector& vector : VectorsOfForm("zhex", true)) {
        const QByteArray bytes = vector.Data();
        const Field& marker = vector.fields.at(MARKER_TEXT);
        const int markerEnd = marker.offset + static_cast<int>(marker.bytes.size());
        for (int size = 0; size < bytes.size(); ++size) {
            const Place place(vector, size);
            const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), true);
            const std::string empty = subject->Description();
            const Result result = ReadRepresentation(*subject, bytes.left(size));
            EXPECT_TRUE(result.error.isEmpty()) << result.Shown();
            EXPECT_EQ(result.isAccepted, size >= markerEnd);
            EXPECT_EQ(subject->Description(), empty);
        }
    }
}

TEST(Corruption, ARawFormCutOffGivesNumbersOfZeroAndNoError)
{
    int examined = 0;
    for (const Vector& vector : VectorsOfForm("raw.hex", true)) {
        if (!IsFlat(FolderOf(vector)))
            continue;
        const QByteArray bytes = vector.Data();
        for (int size = 0; size < bytes.size(); ++size) {
            const Place place(vector, size);
            // A number that is not there to the last byte reads as 0, and so does everything behind it.
            QByteArray completed = bytes.left(1);
            for (std::size_t i = 1; i < vector.fields.size(); ++i) {
                const Field& field = vector.fields[i];
                const int width = static_cast<int>(field.bytes.size());
                completed +=
                    field.offset + width <= size ? bytes.mid(field.offset, width) : QByteArray(width, '\0');
            }
            if (size == 0)
                completed = QByteArray(bytes.size(), '\0');
            const std::unique_ptr<Subject> expected = NewSubject(FolderOf(vector), true);
            ASSERT_TRUE(ReadRaw(*expected, completed).error.isEmpty());

            const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), true);
            const Result result = ReadRaw(*subject, bytes.left(size));
            EXPECT_TRUE(result.error.isEmpty()) << result.Shown();
            EXPECT_EQ(subject->Description(), expected->Description());
            ++examined;
        }
    }
    EXPECT_GT(examined, 300);
}

TEST(Corruption, ARawFormOfAHolderThatIsDamagedLeavesTheObjectUsable)
{
    for (const Vector& vector : VectorsOfForm("raw.hex", true)) {
        if (IsFlat(FolderOf(vector)))
            continue;
        const QByteArray bytes = vector.Data();
        const auto examine = [&](const QByteArray& damaged) {
            for (const bool validate : {false, true}) {
                const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), validate);
                const Result result = ReadRaw(*subject, damaged);
                EXPECT_TRUE(IsKnownError(result, validate)) << result.Shown();

                subject->Object().SetValidate(false);
                EXPECT_NO_RG_THROW(subject->Object().GetXmlString());
                subject->Object().Reset();
                EXPECT_TRUE(ReadRaw(*subject, bytes).error.isEmpty());
                const std::unique_ptr<Subject> expected = NewSubject(FolderOf(vector), false);
                ReadRaw(*expected, bytes);
                EXPECT_EQ(subject->Description(), expected->Description());
            }
        };
        for (int size = 0; size < bytes.size(); ++size) {
            const Place place(vector, size);
            examine(bytes.left(size));
        }
        ForEachChangedBit(vector, [&](std::size_t index, int bit, const QByteArray& changed) {
            const Place place(vector, index, bit);
            examine(changed);
        });
    }
}

TEST(Corruption, ADeclaredLengthOfUncompressedDataIsNotBelieved)
{
    for (const Vector& vector : VectorsOfForm("zhex", false)) {
        const Field& prefix = vector.fields.at(PREFIX);
        ASSERT_EQ(prefix.kind, "prefix");
        const Examination examination(
            Support::LoadVector(vector.path.left(vector.path.size() - 4) + QLatin1String("hex")));
        // Up to 16 MB: beyond that a reader may refuse what it would have to make room for.
        for (int bit = 0; bit < 24; ++bit) {
            const Place place(vector, PREFIX, bit);
            const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), false);
            EXPECT_TRUE(ReadRepresentation(*subject, WithBitChanged(vector.Data(), prefix, bit)).isAccepted);
            EXPECT_EQ(subject->Description(), examination.IntactDescription());
        }
        for (int bit = 24; bit < BITS_OF_NUMBER; ++bit) {
            const Place place(vector, PREFIX, bit);
            const std::unique_ptr<Subject> subject = NewSubject(FolderOf(vector), false);
            const Result result = ReadRepresentation(*subject, WithBitChanged(vector.Data(), prefix, bit));
            EXPECT_TRUE(result.isAccepted) << result.Shown();
            EXPECT_TRUE(subject->Description() == examination.IntactDescription() ||
                        subject->Description() == examination.Empty());
        }
    }
}
