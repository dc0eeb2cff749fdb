#include <reportviewer/finding.h>

#include <reportviewer/paths.h>

#include <reportgenerator/models/reportmodel.h>

#include <algorithm>
#include <array>

namespace ReportViewer {

using REPORTGENERATOR::ReportModel;

namespace {

// --- Rows of the tree

QModelIndex LastBelow(const ReportModel& model, QModelIndex row)
{
    for (int count = model.rowCount(row); count > 0; count = model.rowCount(row))
        row = model.index(count - 1, ReportModel::NameColumn, row);
    return row;
}

/// The next one of the whole tree; invalid behind the last one. The first one is next to none.
QModelIndex RowBehind(const ReportModel& model, const QModelIndex& row)
{
    if (model.rowCount(row) > 0)
        return model.index(0, ReportModel::NameColumn, row);
    for (QModelIndex next = row; next.isValid(); next = next.parent()) {
        if (next.row() + 1 < model.rowCount(next.parent()))
            return next.sibling(next.row() + 1, ReportModel::NameColumn);
    }
    return QModelIndex();
}

/// The one before; invalid before the first one. The last one is before none.
QModelIndex RowBefore(const ReportModel& model, const QModelIndex& row)
{
    if (!row.isValid())
        return LastBelow(model, row);
    if (row.row() == 0)
        return row.parent();
    return LastBelow(model, row.sibling(row.row() - 1, ReportModel::NameColumn));
}

bool HasText(const QModelIndex& row, const QString& wanted)
{
    if (row.data().toString().contains(wanted, Qt::CaseInsensitive))
        return true;
    if (row.data(ReportModel::IsSetRole).toBool() && row.sibling(row.row(), ReportModel::ValueColumn)
                                                         .data()
                                                         .toString()
                                                         .contains(wanted, Qt::CaseInsensitive))
        return true;
    // What holds the field has been found by its own path.
    const QString path = row.data(ReportModel::PathRole).toString();
    const auto found = path.lastIndexOf(wanted, -1, Qt::CaseInsensitive);
    return found >= 0 && found + wanted.size() > ParentPath(path).size();
}

// --- Bytes

char Lower(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// High bytes first, as in streams.
QByteArray Utf16Of(const QString& text)
{
    constexpr unsigned BITS_OF_BYTE = 8;
    QByteArray bytes;
    for (const QChar character : text) {
        bytes += static_cast<char>(character.unicode() >> BITS_OF_BYTE);
        bytes += static_cast<char>(character.unicode());
    }
    return bytes;
}

/// The first or the last place that begins within the part, -1 for none.
qint64 FindWithin(const QByteArray& bytes, const QByteArray& wanted, qint64 begin, qint64 end, int direction)
{
    const qint64 last = std::min<qint64>(end, bytes.size() - wanted.size() + 1);
    if (begin >= last)
        return -1;
    const auto areSame = [](char left, char right) { return Lower(left) == Lower(right); };
    const char* const from = bytes.constData() + begin;
    const char* const to = bytes.constData() + last - 1 + wanted.size();
    const char* const found = direction < 0 ? std::find_end(from, to, wanted.begin(), wanted.end(), areSame)
                                            : std::search(from, to, wanted.begin(), wanted.end(), areSame);
    return found == to ? -1 : found - bytes.constData();
}

} // namespace

QModelIndex FindField(const ReportModel& model, const QString& wanted, const QModelIndex& from, int direction)
{
    if (wanted.isEmpty())
        return QModelIndex();
    const QModelIndex start = from.sibling(from.row(), ReportModel::NameColumn);
    QModelIndex row = start;
    do {
        row = direction < 0 ? RowBefore(model, row) : RowBehind(model, row);
        if (row.isValid() && HasText(row, wanted))
            return row;
    } while (row != start);
    return QModelIndex();
}

std::optional<Span> FindInText(const QString& text, const QString& wanted, qint64 from, int direction)
{
    if (wanted.isEmpty())
        return std::nullopt;
    const auto place = static_cast<int>(from);
    const bool isBackwards = direction < 0;
    qint64 found = -1;
    if (!isBackwards)
        found = text.indexOf(wanted, place + 1, Qt::CaseInsensitive);
    else if (place > 0)
        found = text.lastIndexOf(wanted, place - 1, Qt::CaseInsensitive);
    if (found < 0)
        found = isBackwards ? text.lastIndexOf(wanted, -1, Qt::CaseInsensitive)
                            : text.indexOf(wanted, 0, Qt::CaseInsensitive);
    if (found < 0)
        return std::nullopt;
    return Span{found, found + wanted.size()};
}

std::optional<Span> FindInBytes(const QByteArray& bytes, const QString& wanted, qint64 from, int direction)
{
    if (wanted.isEmpty())
        return std::nullopt;
    const std::array<QByteArray, 2> forms = {wanted.toUtf8(), Utf16Of(wanted)};
    const std::array<Span, 2> parts =
        direction < 0 ? std::array<Span, 2>{Span{0, from}, Span{from, bytes.size()}}
                      : std::array<Span, 2>{Span{from + 1, bytes.size()}, Span{0, from + 1}};
    for (const Span& part : parts) {
        std::optional<Span> nearest;
        for (const QByteArray& form : forms) {
            const qint64 found = FindWithin(bytes, form, part.begin, part.end, direction);
            if (found >= 0 && (!nearest || (found < nearest->begin) == (direction > 0)))
                nearest = Span{found, found + form.size()};
        }
        if (nearest)
            return nearest;
    }
    return std::nullopt;
}

} // namespace ReportViewer
