#ifndef REPORTVIEWER_FINDBAR_H
#define REPORTVIEWER_FINDBAR_H

#include <QtWidgets/QFrame>

class QLabel;
class QLineEdit;

namespace REPORTGENERATOR {
class ReportModel;
}

namespace ReportViewer {

class BytesPane;
class TreePane;

/// A line below the tree, for a text that is looked for in the fields of the report or in its bytes.
class FindBar : public QFrame
{
    Q_OBJECT

public:
    enum class Where
    {
        Fields,
        Bytes
    };

    FindBar(const REPORTGENERATOR::ReportModel& model, TreePane& tree, BytesPane& bytes);

    /// Begins to look there.
    void Open(Where where);

    /// Begins anew where it looked last.
    void Open();

    /// Goes to where the text comes next, or before. Without a text the bar is opened, so that there is one.
    void FindNext(int direction);

    bool HasKeyboard() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool Find(int direction);
    void Close();
    QWidget& Searched() const;

    const REPORTGENERATOR::ReportModel& m_model;
    TreePane& m_tree;
    BytesPane& m_bytes;
    Where m_where = Where::Fields;
    QLabel* m_title;
    QLineEdit* m_text;
    QLabel* m_outcome;
};

} // namespace ReportViewer

#endif
