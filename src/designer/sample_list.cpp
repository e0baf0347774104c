#include "designer/sample_list.h"

#include <algorithm>

namespace zunbrix {
namespace {

QString cleanLine(const QString& name)
{
    if (name.isEmpty())
        return QStringLiteral(" ");
    QString line = name;
    for (QChar& unit : line) {
        const char16_t code = unit.unicode();
        if (code >= u'a' && code <= u'z')
            unit = QChar(static_cast<char16_t>(code - u'a' + u'A'));
        else if (code >= 128)
            unit = QLatin1Char('?');
    }
    return line;
}

} // namespace

bool SampleList::SetList(const QStringList& names, int pageSize, bool doubleSpaced)
{
    if (pageSize < 1)
        return false;
    allLines_.clear();
    for (const QString& name : names)
        allLines_.append(cleanLine(name));
    pageSize_ = pageSize;
    doubleSpaced_ = doubleSpaced;
    showPage(0);
    return true;
}

void SampleList::firstPage()
{
    showPage(0);
}

void SampleList::lastPage()
{
    const auto count = static_cast<int>(allLines_.size());
    showPage(count == 0 ? 0 : (count - 1) / pageSize_ * pageSize_);
}

bool SampleList::previousPage()
{
    if (qint64{pageFirst_} - pageSize_ < 0)
        return false;
    showPage(pageFirst_ - pageSize_);
    return true;
}

bool SampleList::nextPage()
{
    if (qint64{pageFirst_} + pageSize_ >= allLines_.size())
        return false;
    showPage(pageFirst_ + pageSize_);
    return true;
}

int SampleList::longestLineLength() const
{
    qsizetype longest = 0;
    for (const QString& line : allLines_)
        longest = std::max(longest, line.size());
    return static_cast<int>(longest);
}

void SampleList::showPage(int first)
{
    pageFirst_ = first;
    visibleLines_.clear();
    const auto end = std::min<qsizetype>(allLines_.size(), qsizetype{first} + pageSize_);
    for (qsizetype i = first; i < end; ++i) {
        visibleLines_.append(allLines_[i]);
        if (doubleSpaced_)
            visibleLines_.append(QString());
    }

    if (allLines_.isEmpty()) {
        pageNumberText_ = QStringLiteral("1/1");
        return;
    }
    const qint64 pages = (qint64{allLines_.size()} + pageSize_ - 1) / pageSize_;
    const auto digits = static_cast<int>(QString::number(pages).size());
    pageNumberText_ = QStringLiteral("%1/%2").arg(first / pageSize_ + 1, digits, 10, QLatin1Char('0')).arg(pages);
}

} // namespace zunbrix
