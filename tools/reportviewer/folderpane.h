#ifndef REPORTVIEWER_FOLDERPANE_H
#define REPORTVIEWER_FOLDERPANE_H

#include <reportviewer/background.h>

#include <QtCore/QString>
#include <QtWidgets/QWidget>

class QLabel;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QStringListModel;

namespace ReportViewer {

/// The files of a folder, of which one is opened by a click or Enter. A pattern leaves only those whose names fit it.
class FolderPane : public QWidget
{
    Q_OBJECT

public:
    explicit FolderPane(QWidget* parent = nullptr);

    void Open(const QString& folder);

    /// Lists these files instead of those of a folder.
    void ShowFiles(const QStringList& names);
    const QString& Folder() const { return m_folder; }

    /// Where to write the pattern.
    QLineEdit* Filter() const { return m_filter; }

    /// Opens the next file of those that are listed, or the one before.
    void ChooseNext(int direction);

    /// The file with this name is shown elsewhere: it is marked, or none is.
    void SetCurrentFile(const QString& name);

Q_SIGNALS:
    void Chosen(const QString& name);

    /// The folder has been read.
    void Listed();

private:
    void Choose(const QModelIndex& index);
    void Take(const QString& folder, const QStringList& names, bool isReadable);
    void ApplyPattern(const QString& pattern);
    void Count();

    Background m_listing;
    QString m_folder;
    QString m_title;
    QStringListModel* m_names;
    QSortFilterProxyModel* m_filtered;
    QLabel* m_count;
    QLineEdit* m_filter;
    QListView* m_list;
};

} // namespace ReportViewer

#endif
