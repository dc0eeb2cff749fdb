#include "source.h"

#include <cerrno>
#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace ReportColumns {

namespace {

class Batches : public Source
{
public:
    Batches(ColumnType type, std::vector<SharedValues> batches)
        : m_type(std::move(type)), m_batches(std::move(batches))
    {
    }

    const ColumnType& Type() const override { return m_type; }

    SharedValues Next() override
    {
        return m_next < m_batches.size() ? std::move(m_batches[m_next++]) : nullptr;
    }

private:
    const ColumnType m_type;
    std::vector<SharedValues> m_batches;
    std::size_t m_next = 0;
};

struct StreamParts
{
    std::unique_ptr<Source> source;
    std::string error;
};

StreamParts& PartsOf(ArrowArrayStream* stream)
{
    return *static_cast<StreamParts*>(stream->private_data);
}

/// Does something whose exceptions are errors of the stream, since callers may know none.
template <class Action>
int Guarded(ArrowArrayStream* stream, Action&& action)
{
    StreamParts& parts = PartsOf(stream);
    try {
        action(parts);
        return 0;
    } catch (const std::bad_alloc&) {
        return ENOMEM;
    } catch (const std::invalid_argument& exception) {
        parts.error = exception.what();
        return EINVAL;
    } catch (const std::exception& exception) {
        parts.error = exception.what();
        return EIO;
    }
}

int GetSchema(ArrowArrayStream* stream, ArrowSchema* out)
{
    return Guarded(stream, [out](StreamParts& parts) { ExportSchema(parts.source->Type(), out); });
}

int GetNext(ArrowArrayStream* stream, ArrowArray* out)
{
    return Guarded(stream, [out](StreamParts& parts) {
        *out = {};
        if (const SharedValues batch = parts.source->Next())
            ExportArray(batch, out);
    });
}

const char* GetLastError(ArrowArrayStream* stream)
{
    return PartsOf(stream).error.c_str();
}

void Release(ArrowArrayStream* stream)
{
    delete static_cast<StreamParts*>(stream->private_data);
    stream->private_data = nullptr;
    stream->release = nullptr;
}

} // namespace

std::unique_ptr<Source> SourceOf(ColumnType type, std::vector<SharedValues> batches)
{
    return std::make_unique<Batches>(std::move(type), std::move(batches));
}

void ExportStream(std::unique_ptr<Source> source, ArrowArrayStream* out)
{
    auto parts = std::make_unique<StreamParts>();
    parts->source = std::move(source);
    *out = {};
    out->get_schema = GetSchema;
    out->get_next = GetNext;
    out->get_last_error = GetLastError;
    out->release = Release;
    out->private_data = parts.release();
}

} // namespace ReportColumns
