#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTableView>

namespace zunbrix {

class GameList;

// The table over the game list. It owns no rows: it draws the cells the model gives, paints each row in the
// model's colours, and hands clicks, double clicks, header clicks and typed text to the model, which decides.
class GameListView : public QTableView {
    Q_OBJECT
public:
    GameListView(GameList& list, QWidget* parent);

    // Text typed into the list selects the game the model finds for it; typing on within the system's key
    // interval extends the text.
    void keyboardSearch(const QString& search) override;

Q_SIGNALS:
    // A double click on a file path: the file to open, or with Ctrl its folder to show.
    void openRequested(const QString& path);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    // Space ticks or clears the current row's check box, whichever cell of the row is current.
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool onCheckBox(const QModelIndex& index, const QPoint& position) const;

    GameList& list_;
    QString typed_;
    QElapsedTimer sinceTyped_;
};

} // namespace zunbrix
