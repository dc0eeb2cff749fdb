#ifndef REPORTGENERATOR_REPORTMODEL_H
#define REPORTGENERATOR_REPORTMODEL_H

#include <reportgenerator/models/reportmodels_export.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <memory>

namespace REPORTGENERATOR {

/// A report for Qt's views: a tree with a row for each field, in the order in which people want them.
///
/// A member object has the fields of its class below it, whether the report carries it or not: setting one of
/// them makes the report carry it. A list has its items below it, and each item its fields. The first column
/// holds names ("IF bandwidth", "coordinate 17"), the second one values.
///
/// Rows are found by paths, which name fields and count items from 1: "frequency.value",
/// "area.coordinate[17].latitude". The rows of fields that are not set can be found, too.
///
/// The model holds a copy of the report, and changes it through the checks of the classes' setters, whether
/// the report validates or not. What these refuse changes nothing: the operation returns false after the
/// signal `Refused` has told why. A new model is read-only, so that a view shows the report and changes
/// nothing.
///
/// Looking at a report takes no longer with many coordinates than with few, and an index is found in constant
/// time. Setting a report costs a copy of it. A change takes time in proportion to its coordinates.
///
/// To undo changes, keep a copy of `Report()` from before and hand it to `ChangeReport`. Copies share what
/// has not been changed since, but for the coordinates, which each change of the area copies.
///
/// A model and its report are used by one thread, that of its views.
///
///     REPORTGENERATOR::ReportModel model;
///     model.SetReport(report);
///     view.setModel(&model);
///     view.setCurrentIndex(model.IndexOf(QStringLiteral("area.coordinate[17].latitude")));
class REPORTMODELS_EXPORT ReportModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// What children stand below is the row's first column, as with all tree models.
    enum Column
    {
        NameColumn,
        ValueColumn,
        ColumnCount
    };

    /// Beside Qt's own roles, for both columns.
    ///
    /// Of Qt's, `Qt::DisplayRole` is the text for people: of a value as `reporttool show` has it, with texts in
    /// quotes, or "not set"; of a list the number of its items, of an item its values. `Qt::EditRole` of the
    /// value column is what an editor begins with and ends in: numbers as the shortest text that reads back
    /// as the same number, switches as `bool`, texts as they are, and nothing for what is not set.
    /// `Qt::ToolTipRole` is the complaint. Items are renumbered by a signal of their own when rows come or go.
    enum Role
    {
        PathRole = Qt::UserRole, ///< `QString`: "area.coordinate[17].latitude"
        IsSetRole,               ///< `bool`; an item of a list is set
        ComplaintRole,           ///< `QString`: what the library's check says about the field, mostly nothing
        IsObjectRole,            ///< `bool`: a member object, a list or an item of one
        ValueRole                ///< the value as it is: `double`, `bool`, `QString`; invalid when not set
    };

    /// Shows a report that carries nothing; read-only.
    explicit ReportModel(QObject* parent = nullptr);
    ~ReportModel() override;

    /// Shows a copy of the report. Resets the model: all indexes become invalid. Does not emit `ReportChanged`.
    void SetReport(const ReportBase& report);

    /// The report as it stands. It has no logger, and is the model's: whoever wants to keep it copies it.
    const ReportBase& Report() const;

    /// Replaces the report by a copy of another one without a reset: indexes of what both have stay as they
    /// are, and views are told of what differs. In a list, rows are inserted or removed where the two begin to
    /// differ. Does so whether the model is read-only or not, and checks nothing.
    ///
    /// Emits `ReportChanged` unless nothing differs.
    void ChangeReport(const ReportBase& report);

    /// Whether fields cannot be changed by `setData`, `Unset`, `AddItem`, `InsertItem`, `insertRows` and
    /// `removeRows`, which then refuse. So it is with a new model.
    bool IsReadOnly() const;
    void SetReadOnly(bool isReadOnly);

    /// The index of a field, a member object, a list or an item; an invalid one when there is none.
    QModelIndex IndexOf(const QString& path, int column = NameColumn) const;

    /// The path of an index; empty for an invalid one.
    QString PathOf(const QModelIndex& index) const;

    // Changes

    /// Sets a value. Setting what is set already changes nothing and is not refused.
    ///
    /// With `Qt::EditRole` the value may be a text as people write it: a number with a decimal point, "true" or
    /// "false". An empty text unsets a number or a switch, and leaves a text that is not set as it is, since
    /// an editor may have been opened and left. With `ValueRole` the value is taken as it is, of the field's
    /// own type. An invalid value unsets the field. Other roles set nothing and return false without a word.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    /// Unsets a value, a member object or a list, or takes an item out of its list. What isn't set stays so,
    /// which is not refused.
    bool Unset(const QModelIndex& index);

    /// Inserts an item in front of the item `row` of the list, or behind the last one. Since an incomplete item
    /// is refused by a list, it is a copy of the item in front, of the one behind at the beginning, and in an
    /// empty list one whose mandatory fields hold 0, or the number of their range that is next to it.
    bool AddItem(const QModelIndex& list, int row);

    /// Inserts an item with these values, by the names that their paths end in: "longitude", "latitude". Values
    /// are as those of `setData` with `Qt::EditRole`.
    bool InsertItem(const QModelIndex& list, int row, const QVariantMap& values);

    /// Inserts items into a list, each as `AddItem` does.
    bool insertRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;

    /// Removes items of a list. A list without items is still set; `Unset` unsets it.
    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;

    // What views ask

    /// As views ask every model; a list has its items below it, and a member object its fields.
    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// Values can be edited unless the model is read-only. The version of the format cannot.
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The own ones are "path", "isSet", "complaint", "isObject" and "value".
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    /// A change was refused, and nothing has changed. The text is that of the library's exception, or says what
    /// cannot be done.
    void Refused(const QModelIndex& index, const QString& text);

    /// The report has been changed by other than `SetReport`. Comes after the signals for views.
    void ReportChanged();

private:
    Q_DISABLE_COPY(ReportModel)

    struct Q_DECL_HIDDEN State;

    const std::unique_ptr<State> m_state;
};

} // namespace REPORTGENERATOR

#endif
