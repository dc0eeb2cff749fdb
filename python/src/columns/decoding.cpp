#include "decoding.h"

#include "batches.h"
#include "directreading.h"
#include "fileinput.h"
#include "rowbuilder.h"
#include "streaminput.h"

#include <reportcore/files.h>
#include <reportcore/lint.h>
#include <reportcore/reportdocument.h>
#include <reportcore/reportfile.h>

#include <QtCore/QByteArray>

#include <algorithm>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace ReportColumns {

using ReportCore::Problem;
using ReportCore::ReportFile;
using REPORTGENERATOR::RecordAccess;
using REPORTGENERATOR::ReportBaseData;

namespace {

/// Batches that are decoded before the first of them is handed on, for each thread.
constexpr std::size_t BATCHES_AHEAD = 2;

constexpr char FILE_COLUMN[] = "file";
constexpr char COLUMN[] = "the column";

/// The first problem, and how many others there are.
QString TextOf(const ReportCore::Problems& problems)
{
    const QString first = ReportCore::ProblemLine(problems.front());
    if (problems.size() == 1)
        return first;
    return QStringLiteral("%1, and %2 more").arg(first).arg(problems.size() - 1);
}

/// Any report, in whatever shape: as `reporttool check` reads it.
void AppendCarefully(RowBuilder& rows, const QByteArray& bytes)
{
    const ReportCore::ReportDocument document(bytes);
    if (document.Count() > 1) {
        const QString text = QStringLiteral("%1 reports in one document").arg(document.Count());
        rows.AppendProblem(ReportCore::ProblemLine({QLatin1String(ReportCore::SECOND_REPORT), text}));
        return;
    }
    const ReportFile file = document.Read(0);
    if (!file.IsGood()) {
        rows.AppendProblem(TextOf(file.problems));
        return;
    }
    RecordAccess::Init(file.report);
    rows.AppendReport(*RecordAccess::Get(file.report));
}

void Append(RowBuilder& rows, const Bytes& bytes)
{
    ReportBaseData data;
    if (ReadDirectly(bytes.begin, bytes.size, data)) {
        rows.AppendReport(data);
    } else if (bytes.size > static_cast<std::size_t>(ReportCore::Ceiling())) {
        const QString text = QStringLiteral("%1 bytes, more than the ceiling of %2")
                                 .arg(bytes.size)
                                 .arg(ReportCore::Ceiling());
        rows.AppendProblem(ReportCore::ProblemLine({QLatin1String(ReportCore::TOO_LARGE), text}));
    } else {
        AppendCarefully(rows, QByteArray::fromRawData(bytes.begin, static_cast<int>(bytes.size)));
    }
}

/// Builders that no thread uses at the moment; they know how much their last batch was. There are two for each thread, so that
/// one has room when it is wanted.
class IdleBuilders
{
public:
    explicit IdleBuilders(const DecodeOptions& options)
        : m_columns(options.columns), m_most(2 * static_cast<std::size_t>(ThreadsFor(options.threads)))
    {
    }

    std::unique_ptr<RowBuilder> Take()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_prepared.empty() && (m_used.empty() || m_made < m_most)) {
            ++m_made;
            return std::make_unique<RowBuilder>(m_columns);
        }
        auto& builders = m_prepared.empty() ? m_used : m_prepared;
        std::unique_ptr<RowBuilder> builder = std::move(builders.back());
        builders.pop_back();
        return builder;
    }

    void PutBack(std::unique_ptr<RowBuilder> builder)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_used.push_back(std::move(builder));
    }

    /// Makes room in those that were used, in the calling thread. It is the one that lives on, and the allocator keeps what it
    /// frees; what other threads free goes back to the system, and getting pages anew takes as long as filling them.
    void Prepare()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        while (!m_used.empty()) {
            m_used.back()->Reserve();
            m_prepared.push_back(std::move(m_used.back()));
            m_used.pop_back();
        }
    }

private:
    const ColumnChoice m_columns;
    const std::size_t m_most;
    std::mutex m_mutex;
    std::size_t m_made = 0;
    std::vector<std::unique_ptr<RowBuilder>> m_prepared;
    std::vector<std::unique_ptr<RowBuilder>> m_used;
};

template <class Job>
std::deque<SharedValues> DecodeInOrder(std::size_t count, const DecodeOptions& options,
                                       IdleBuilders& builders, Job&& job)
{
    const auto beforeEach = [&] {
        if (options.checkpoint)
            options.checkpoint();
        builders.Prepare();
    };
    return InOrder(count, ThreadsFor(options.threads), beforeEach, std::forward<Job>(job));
}

// --- Arrays

std::vector<SharedValues> DecodePart(const BytesInput& input, Part part, IdleBuilders& builders)
{
    std::unique_ptr<RowBuilder> rows = builders.Take();
    std::vector<SharedValues> batches;
    do {
        for (; part.begin < part.end && !rows->IsFull(); ++part.begin) {
            if (input.IsThere(part.begin))
                Append(*rows, input.At(part.begin));
            else
                rows->AppendNull();
        }
        batches.push_back(std::make_shared<const ColumnValues>(rows->Finish()));
    } while (part.begin < part.end);
    builders.PutBack(std::move(rows));
    return batches;
}

std::vector<SharedValues> DecodeArray(const BytesInput& input, const DecodeOptions& options,
                                      IdleBuilders& builders)
{
    const std::vector<Part> parts = PartsOf(input.Length(), options.batchRows);
    const std::deque<SharedValues> batches =
        DecodeInOrder(parts.size(), options, builders,
                      [&](std::size_t i) { return DecodePart(input, parts[i], builders); });
    return {batches.begin(), batches.end()};
}

// --- Streams

class DecodedStream : public Source
{
public:
    DecodedStream(OwnedStream stream, const DecodeOptions& options)
        : m_input(std::move(stream)), m_options(options), m_type(DecodedType(options.columns)),
          m_builders(options)
    {
        // What can't be decoded is to be known before the first array.
        BytesInput(m_input.Schema(), ArrowArray(), COLUMN);
    }

    const ColumnType& Type() const override { return m_type; }

    SharedValues Next() override
    {
        while (m_ready.empty() && m_input.HasArray()) {
            const std::vector<SharedValues> batches =
                DecodeArray(BytesInput(m_input.Schema(), m_input.Array(), COLUMN), m_options, m_builders);
            m_ready.assign(batches.begin(), batches.end());
            m_input.Advance();
        }
        return TakeFirst(m_ready);
    }

private:
    StreamInput m_input;
    const DecodeOptions m_options;
    const ColumnType m_type;
    IdleBuilders m_builders;
    std::deque<SharedValues> m_ready;
};

// --- Files

void AppendFile(RowBuilder& rows, const std::string& path)
{
    try {
        const QByteArray bytes = ReadFile(path);
        Append(rows, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    } catch (const UnreadableFile& failure) {
        rows.AppendProblem(
            ReportCore::ProblemLine({QStringLiteral("UnusableFile"), QString::fromStdString(failure.text)}));
    }
}

class DecodedFiles : public Source
{
public:
    DecodedFiles(std::vector<std::string> paths, const DecodeOptions& options)
        : m_paths(std::move(paths)), m_options(options),
          m_parts(PartsOf(static_cast<std::int64_t>(m_paths.size()), options.batchRows)),
          m_type(options.columns.Type({{"u", FILE_COLUMN, false}})), m_builders(options)
    {
    }

    const ColumnType& Type() const override { return m_type; }

    SharedValues Next() override
    {
        if (m_ready.empty())
            DecodeMore();
        return TakeFirst(m_ready);
    }

private:
    void DecodeMore()
    {
        const int threads = ThreadsFor(m_options.threads);
        const std::size_t count =
            std::min(m_parts.size() - m_next, static_cast<std::size_t>(threads) * BATCHES_AHEAD);
        m_ready = DecodeInOrder(count, m_options, m_builders,
                                [this](std::size_t i) { return DecodePart(m_parts[m_next + i]); });
        m_next += count;
    }

    std::vector<SharedValues> DecodePart(Part part)
    {
        std::unique_ptr<RowBuilder> rows = m_builders.Take();
        std::vector<SharedValues> batches;
        do {
            BytesBuilder files;
            for (; part.begin < part.end && !rows->IsFull(); ++part.begin) {
                const std::string& path = m_paths[static_cast<std::size_t>(part.begin)];
                AppendFile(*rows, path);
                files.Append(QString::fromUtf8(path.data(), static_cast<int>(path.size())));
            }
            std::vector<ColumnValues> further;
            further.push_back(files.Finish());
            batches.push_back(std::make_shared<const ColumnValues>(rows->Finish(std::move(further))));
        } while (part.begin < part.end);
        m_builders.PutBack(std::move(rows));
        return batches;
    }

    const std::vector<std::string> m_paths;
    const DecodeOptions m_options;
    const std::vector<Part> m_parts;
    const ColumnType m_type;
    IdleBuilders m_builders;
    std::size_t m_next = 0;
    std::deque<SharedValues> m_ready;
};

} // namespace

ColumnType DecodedType(const ColumnChoice& columns)
{
    return columns.Type();
}

std::vector<SharedValues> Decode(const BytesInput& input, const DecodeOptions& options)
{
    IdleBuilders builders(options);
    return DecodeArray(input, options, builders);
}

std::unique_ptr<Source> DecodeStream(OwnedStream stream, const DecodeOptions& options)
{
    return std::make_unique<DecodedStream>(std::move(stream), options);
}

std::unique_ptr<Source> DecodeFiles(std::vector<std::string> paths, const DecodeOptions& options)
{
    return std::make_unique<DecodedFiles>(std::move(paths), options);
}

} // namespace ReportColumns
