// The module reportgenerator._columns, which reportgenerator.arrow stands on.

#include "capsules.h"
#include "columnbuilder.h"
#include "decoding.h"
#include "encoding.h"
#include "signals.h"

#include <pybind11/stl.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace py = pybind11;

using namespace ReportColumns;

namespace {

/// Batches that are there. They may be handed out any number of times, without being copied.
class Columns
{
public:
    Columns(ColumnType type, std::vector<SharedValues> batches)
        : m_type(std::move(type)), m_batches(std::move(batches))
    {
    }

    std::int64_t Rows() const
    {
        std::int64_t rows = 0;
        for (const SharedValues& batch : m_batches)
            rows += batch->length;
        return rows;
    }

    std::size_t Size() const
    {
        std::size_t size = 0;
        for (const SharedValues& batch : m_batches)
            size += SizeOf(*batch);
        return size;
    }

    std::vector<Columns> Batches() const
    {
        std::vector<Columns> all;
        for (const SharedValues& batch : m_batches)
            all.push_back(Columns(m_type, {batch}));
        return all;
    }

    py::object Schema() const { return SchemaCapsule(m_type); }

    py::tuple Array(const py::object& /*requested*/) const
    {
        if (m_batches.size() != 1)
            throw py::value_error("there are " + std::to_string(m_batches.size()) +
                                  " batches: take them as a stream, or decode with batch_rows=0");
        return py::make_tuple(Schema(), ArrayCapsule(m_batches.front()));
    }

    py::object Stream(const py::object& /*requested*/) const
    {
        return StreamCapsule(SourceOf(m_type, m_batches));
    }

private:
    static std::size_t SizeOf(const ColumnValues& values)
    {
        std::size_t size = 0;
        for (const Buffer& buffer : values.buffers)
            size += buffer.Size();
        for (const ColumnValues& child : values.children)
            size += SizeOf(child);
        return size;
    }

    ColumnType m_type;
    std::vector<SharedValues> m_batches;
};

/// Batches that come when they are asked for, once. Threads that ask at the same time get different ones.
class Stream
{
public:
    explicit Stream(std::unique_ptr<Source> source) : m_type(source->Type()), m_held(std::make_shared<Held>())
    {
        m_held->source = std::move(source);
    }

    py::object Schema() const { return SchemaCapsule(m_type); }

    py::object Capsule(const py::object& /*requested*/)
    {
        std::unique_ptr<Source> source;
        {
            const py::gil_scoped_release others;
            const std::lock_guard<std::mutex> lock(m_held->mutex);
            m_held->Require();
            source = std::move(m_held->source);
        }
        return StreamCapsule(std::move(source));
    }

    Columns Next()
    {
        SharedValues batch;
        {
            const py::gil_scoped_release others;
            const std::lock_guard<std::mutex> lock(m_held->mutex);
            m_held->Require();
            batch = m_held->source->Next();
        }
        if (!batch)
            throw py::stop_iteration();
        return Columns(m_type, {std::move(batch)});
    }

private:
    struct Held
    {
        void Require() const
        {
            if (!source)
                throw py::value_error("the batches of this stream have been taken already");
        }

        std::mutex mutex;
        std::unique_ptr<Source> source;
    };

    ColumnType m_type;
    std::shared_ptr<Held> m_held;
};

using Names = std::optional<std::vector<std::string>>;

DecodeOptions OptionsOf(const Names& columns, int threads, std::int64_t batchRows)
{
    DecodeOptions options;
    if (columns)
        options.columns = ColumnChoice(*columns);
    options.threads = threads;
    options.batchRows = batchRows;
    options.checkpoint = HandleSignals;
    return options;
}

/// Bytes that Python holds, as a column.
ColumnValues ColumnOf(const py::sequence& values)
{
    BytesBuilder column;
    for (const py::handle value : values) {
        if (value.is_none()) {
            column.AppendNull();
            continue;
        }
        if (!py::isinstance<py::bytes>(value))
            throw py::type_error(
                "a column is an object of Arrow's PyCapsule protocol, or a sequence of bytes and None");
        const auto bytes = py::cast<std::string_view>(value);
        column.Append(bytes.data(), bytes.size());
    }
    return column.Finish();
}

Columns DecodeGiven(const GivenArray& given, const DecodeOptions& options)
{
    const BytesInput input(*given.schema, *given.array, "the column");
    std::vector<SharedValues> batches;
    {
        const py::gil_scoped_release others;
        batches = Decode(input, options);
    }
    return Columns(DecodedType(options.columns), std::move(batches));
}

py::object DecodeAny(const py::object& column, const Names& columns, int threads, std::int64_t batchRows)
{
    const DecodeOptions options = OptionsOf(columns, threads, batchRows);
    if (GivesArray(column))
        return py::cast(DecodeGiven(TakeArray(column), options));
    if (GivesStream(column))
        return py::cast(Stream(DecodeStream(TakeStream(column), options)));
    if (!py::isinstance<py::sequence>(column) || py::isinstance<py::bytes>(column) ||
        py::isinstance<py::str>(column))
        throw py::type_error(
            "a column is an object of Arrow's PyCapsule protocol, or a sequence of bytes and None");
    GivenArray given;
    ExportSchema(EncodedType(), given.schema.Get());
    ExportArray(std::make_shared<const ColumnValues>(ColumnOf(column)), given.array.Get());
    return py::cast(DecodeGiven(given, options));
}

Stream Scan(std::vector<std::string> paths, const Names& columns, int threads, std::int64_t batchRows)
{
    return Stream(DecodeFiles(std::move(paths), OptionsOf(columns, threads, batchRows)));
}

ReportCore::FileForm FormCalled(const std::string& name)
{
    using ReportCore::FileForm;
    using ReportCore::Form;
    const std::vector<FileForm> forms = {{Form::Xml, false}, {Form::Plain, false}, {Form::Compressed, false}};
    const auto found = std::find_if(forms.begin(), forms.end(), [&name](const FileForm& form) {
        return QString::fromStdString(name) == ReportCore::WordFor(form);
    });
    if (found == forms.end())
        throw py::value_error("no form is called '" + name + "': there are xml, plain and compressed");
    return *found;
}

py::object EncodeAny(const py::object& table, const std::string& form, int level, bool skips, int threads,
                     std::int64_t batchRows)
{
    EncodeOptions options;
    options.form = FormCalled(form);
    if (level < -1 || level > 9)
        throw py::value_error("a level is a number from -1 to 9, not " + std::to_string(level));
    options.level = level;
    options.skipsRefused = skips;
    options.threads = threads;
    options.batchRows = batchRows;
    options.checkpoint = HandleSignals;
    // A table may be both; as a stream it comes whole.
    if (GivesStream(table))
        return py::cast(Stream(EncodeStream(TakeStream(table), options)));
    if (!GivesArray(table))
        throw py::type_error("a table is an object of Arrow's PyCapsule protocol");
    const GivenArray given = TakeArray(table);
    std::vector<SharedValues> batches;
    {
        const py::gil_scoped_release others;
        batches = Encode(*given.schema, *given.array, options);
    }
    return py::cast(Columns(EncodedType(), std::move(batches)));
}

QtMessageHandler otherMessages = nullptr;

/// Damaged data are problems of their rows; Qt would print a line for each, too.
void TakeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (otherMessages && !text.startsWith(QLatin1String("qUncompress:")))
        otherMessages(type, context, text);
}

std::vector<std::string> NamesOf()
{
    std::vector<std::string> names;
    for (const ReportColumn& column : AllColumns())
        names.push_back(column.type.name);
    return names;
}

} // namespace

PYBIND11_MODULE(_columns, module)
{
    module.doc() = "What reportgenerator.arrow stands on.";
    otherMessages = qInstallMessageHandler(TakeMessage);
    PrepareSignals();

    py::class_<Columns>(
        module, "Columns",
        "Batches of rows in memory, for every package that knows Arrow's PyCapsule protocol; handing "
        "them out copies nothing.")
        .def("__len__", &Columns::Rows)
        .def_property_readonly("nbytes", &Columns::Size, "Bytes of all buffers.")
        .def("batches", &Columns::Batches, "Each batch by itself.")
        .def("__arrow_c_schema__", &Columns::Schema)
        .def("__arrow_c_array__", &Columns::Array, py::arg("requested_schema") = py::none())
        .def("__arrow_c_stream__", &Columns::Stream, py::arg("requested_schema") = py::none());

    py::class_<Stream>(
        module, "Stream",
        "Batches of rows that come into being when they are asked for, once: by iteration, or by a package "
        "that knows Arrow's PyCapsule protocol.")
        .def("__iter__", [](py::object self) { return self; })
        .def("__next__", &Stream::Next)
        .def("__arrow_c_schema__", &Stream::Schema)
        .def("__arrow_c_stream__", &Stream::Capsule, py::arg("requested_schema") = py::none());

    module.def("decode", &DecodeAny, py::arg("column"), py::kw_only(), py::arg("columns") = py::none(),
               py::arg("threads") = 0, py::arg("batch_rows") = DecodeOptions().batchRows);
    module.def("scan", &Scan, py::arg("paths"), py::kw_only(), py::arg("columns") = py::none(),
               py::arg("threads") = 0, py::arg("batch_rows") = DecodeOptions().batchRows);
    module.def("encode", &EncodeAny, py::arg("table"), py::kw_only(), py::arg("form"), py::arg("level"),
               py::arg("skip_refused"), py::arg("threads") = 0,
               py::arg("batch_rows") = EncodeOptions().batchRows);
    module.def(
        "schema",
        [](const Names& columns) { return Columns(DecodedType(OptionsOf(columns, 0, 0).columns), {}); },
        py::arg("columns") = py::none());
    module.attr("COLUMNS") = py::tuple(py::cast(NamesOf()));
}
