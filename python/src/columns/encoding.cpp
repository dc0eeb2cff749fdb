#include "encoding.h"

#include "batches.h"
#include "columnbuilder.h"
#include "reportinput.h"
#include "streaminput.h"

#include <reportcore/reportwriting.h>

#include <reportgenerator/reportbase/records/stagingrecord.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <deque>
#include <stdexcept>
#include <utility>

namespace ReportColumns {

using REPORTGENERATOR::RecordAccess;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ReportBaseData;

namespace {

constexpr std::size_t MOST_BYTES = std::size_t(256) << 20;

/// What the library writes of a row. Throws what it throws for one that is no good report.
QByteArray Written(const ReportInput& input, std::int64_t row, const EncodeOptions& options)
{
    ReportBaseData data;
    const bool isPlain = input.Read(row, data);
    ReportBase report;
    RecordAccess::Init(report);
    REPORTGENERATOR::TakeRecord(RecordAccess::Make(report), data, report);
    return isPlain ? ReportCore::WriteReport(report, options.form, options.level)
                   : ReportCore::WriteWhole(report, options.form, options.level);
}

/// Why a row isn't written; empty when it is.
QString Put(BytesBuilder& out, const ReportInput& input, std::int64_t row, const EncodeOptions& options)
{
    if (input.HasProblem(row))
        return QStringLiteral("it has a problem");
    if (!input.IsThere(row)) {
        out.AppendNull();
        return QString();
    }
    try {
        const QByteArray bytes = Written(input, row, options);
        out.Append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        return QString();
    } catch (const ReportException& refused) {
        return QStringLiteral("%1: %2").arg(refused.GetErrorName(), refused.GetErrorText());
    } catch (const ReportCore::NotWritten& refused) {
        return refused.text;
    }
}

std::vector<SharedValues> EncodePart(const ReportInput& input, Part part, const EncodeOptions& options)
{
    std::vector<SharedValues> batches;
    do {
        BytesBuilder out;
        for (; part.begin < part.end && out.Size() < MOST_BYTES; ++part.begin) {
            const QString refusal = Put(out, input, part.begin, options);
            if (refusal.isEmpty())
                continue;
            if (!options.skipsRefused)
                throw std::invalid_argument("row " + std::to_string(options.firstRow + part.begin) + ": " +
                                            refusal.toStdString());
            out.AppendNull();
        }
        batches.push_back(std::make_shared<const ColumnValues>(out.Finish()));
    } while (part.begin < part.end);
    return batches;
}

class EncodedStream : public Source
{
public:
    EncodedStream(OwnedStream stream, const EncodeOptions& options)
        : m_input(std::move(stream)), m_options(options)
    {
    }

    const ColumnType& Type() const override { return m_type; }

    SharedValues Next() override
    {
        while (m_ready.empty() && m_input.HasArray()) {
            const std::vector<SharedValues> batches = Encode(m_input.Schema(), m_input.Array(), m_options);
            m_ready.assign(batches.begin(), batches.end());
            m_options.firstRow += m_input.Array().length;
            m_input.Advance();
        }
        return TakeFirst(m_ready);
    }

private:
    StreamInput m_input;
    EncodeOptions m_options;
    const ColumnType m_type = EncodedType();
    std::deque<SharedValues> m_ready;
};

} // namespace

ColumnType EncodedType()
{
    return {"z", "report", true};
}

std::vector<SharedValues> Encode(const ArrowSchema& schema, const ArrowArray& array,
                                 const EncodeOptions& options)
{
    const ReportInput input(schema, array);
    const std::vector<Part> parts = PartsOf(input.Length(), options.batchRows);
    const std::deque<SharedValues> batches =
        InOrder(parts.size(), ThreadsFor(options.threads), options.checkpoint,
                [&](std::size_t i) { return EncodePart(input, parts[i], options); });
    return {batches.begin(), batches.end()};
}

std::unique_ptr<Source> EncodeStream(OwnedStream stream, const EncodeOptions& options)
{
    return std::make_unique<EncodedStream>(std::move(stream), options);
}

} // namespace ReportColumns
