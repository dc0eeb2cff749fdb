#include "column.h"

#include <cstring>

namespace ReportColumns {

namespace {

// --- Schemas

/// What a schema that was handed out points at.
struct SchemaParts
{
    std::string format;
    std::string name;
    std::string metadata;
    std::vector<ArrowSchema> children;
    std::vector<ArrowSchema*> pointers;
};

void AppendCounted(std::string& out, const std::string& text)
{
    const auto size = static_cast<std::int32_t>(text.size());
    out.append(reinterpret_cast<const char*>(&size), sizeof size);
    out += text;
}

/// Keys and values as the interface wants them; empty where there are none.
std::string MetadataOf(const ColumnType& type)
{
    std::string out;
    if (type.metadata.empty())
        return out;
    const auto count = static_cast<std::int32_t>(type.metadata.size());
    out.append(reinterpret_cast<const char*>(&count), sizeof count);
    for (const auto& [key, value] : type.metadata) {
        AppendCounted(out, key);
        AppendCounted(out, value);
    }
    return out;
}

/// Children that were moved on have no release any more.
template <class Structure, class Parts>
void ReleaseWithChildren(Structure* structure)
{
    for (std::int64_t i = 0; i < structure->n_children; ++i) {
        Structure* const child = structure->children[i];
        if (child->release)
            child->release(child);
    }
    delete static_cast<Parts*>(structure->private_data);
    structure->private_data = nullptr;
    structure->release = nullptr;
}

template <class Parts>
void PointAtChildren(Parts& parts)
{
    for (auto& child : parts.children)
        parts.pointers.push_back(&child);
}

// --- Arrays

struct ArrayParts
{
    SharedValues whole; ///< keeps the buffers
    std::vector<const void*> buffers;
    std::vector<ArrowArray> children;
    std::vector<ArrowArray*> pointers;
};

void ExportPart(const SharedValues& whole, const ColumnValues& values, ArrowArray* out)
{
    auto parts = std::make_unique<ArrayParts>();
    parts->whole = whole;
    for (const Buffer& buffer : values.buffers)
        parts->buffers.push_back(buffer.Data());
    if (values.nulls == 0 && !parts->buffers.empty())
        parts->buffers.front() = nullptr;
    parts->children.resize(values.children.size());
    parts->pointers.reserve(values.children.size());
    PointAtChildren(*parts);
    for (std::size_t i = 0; i < values.children.size(); ++i)
        ExportPart(whole, values.children[i], &parts->children[i]);
    *out = {};
    out->length = values.length;
    out->null_count = values.nulls;
    out->n_buffers = static_cast<std::int64_t>(parts->buffers.size());
    out->buffers = parts->buffers.data();
    out->n_children = static_cast<std::int64_t>(parts->children.size());
    out->children = parts->pointers.data();
    out->release = ReleaseWithChildren<ArrowArray, ArrayParts>;
    out->private_data = parts.release();
}

} // namespace

void ExportSchema(const ColumnType& type, ArrowSchema* out)
{
    auto parts = std::make_unique<SchemaParts>();
    parts->format = type.format;
    parts->name = type.name;
    parts->metadata = MetadataOf(type);
    parts->children.resize(type.children.size());
    parts->pointers.reserve(type.children.size());
    PointAtChildren(*parts);
    for (std::size_t i = 0; i < type.children.size(); ++i)
        ExportSchema(type.children[i], &parts->children[i]);
    *out = {};
    out->format = parts->format.c_str();
    out->name = parts->name.c_str();
    out->metadata = parts->metadata.empty() ? nullptr : parts->metadata.data();
    out->flags = type.isNullable ? ARROW_FLAG_NULLABLE : 0;
    out->n_children = static_cast<std::int64_t>(parts->children.size());
    out->children = parts->pointers.data();
    out->release = ReleaseWithChildren<ArrowSchema, SchemaParts>;
    out->private_data = parts.release();
}

void ExportArray(const SharedValues& values, ArrowArray* out)
{
    ExportPart(values, *values, out);
}

} // namespace ReportColumns
