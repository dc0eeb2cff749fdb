#ifndef REPORTVIEWER_PROBLEMMODEL_H
#define REPORTVIEWER_PROBLEMMODEL_H

#include <reportviewer/contents.h>

#include <QtCore/QAbstractTableModel>

namespace ReportViewer {

/// The problems and lint of a report, and what of its file is lost by saving, as a table.
class ProblemModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        KindColumn,
        TextColumn,
        FieldColumn,
        PlaceColumn,
        ColumnCount
    };

    /// Of places: "12:7", "0x1a2".
    static constexpr int BRIEF_ROLE = Qt::UserRole;

    explicit ProblemModel(QObject* parent = nullptr);

    void SetContents(const ContentsPointer& contents);

    const ReportCore::Problem& At(int row) const;
    int Problems() const { return static_cast<int>(m_contents->file.problems.size()); }
    int Warnings() const { return static_cast<int>(m_contents->lint.size()); }
    int Losses() const { return static_cast<int>(m_contents->listedLosses.size()); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString TextOf(const QModelIndex& index) const;
    QString KindOf(int row) const;

    ContentsPointer m_contents;
};

} // namespace ReportViewer

#endif
