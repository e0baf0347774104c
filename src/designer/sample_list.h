#pragma once

// The game list that the designer shows on its canvas, a page at a time, as the menu would.

#include <QString>
#include <QStringList>

namespace zunbrix {

class SampleList {
public:
    // Takes the names, cleaned as the menu prints them: an empty name becomes one blank, a..z upper
    // case, any code of 128 or above "?". Shows the first page. Refuses a page size below 1.
    bool SetList(const QStringList& names, int pageSize, bool doubleSpaced);

    // Page commands; false, with nothing changed, when the page would leave the list.
    void firstPage();
    void lastPage();
    bool previousPage();
    bool nextPage();

    const QStringList& AllLines() const { return allLines_; }
    // The lines of the page, each followed by an empty line when double spaced.
    const QStringList& VisibleLines() const { return visibleLines_; }
    int ListPageFirst() const { return pageFirst_; }
    int ListPageSize() const { return pageSize_; }
    bool DoubleSpaced() const { return doubleSpaced_; }
    // "page/pages", the page with as many digits as the page count: "02/60". "1/1" with no lines.
    const QString& PageNumberText() const { return pageNumberText_; }

    // Length of the longest line, in characters.
    int longestLineLength() const;

private:
    void showPage(int first);

    QStringList allLines_;
    QStringList visibleLines_;
    int pageFirst_ = 0;
    int pageSize_ = 1;
    bool doubleSpaced_ = false;
    QString pageNumberText_ = QStringLiteral("1/1");
};

} // namespace zunbrix
