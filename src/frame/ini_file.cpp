#include "frame/ini_file.h"

#include "frame/paths.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QtEndian>

#include <algorithm>
#include <climits>

namespace zunbrix {

namespace {

QString decode(const QByteArray& data)
{
    if (data.size() >= 3 && data.startsWith("\xFF\xFE")) {
        const qsizetype units = (data.size() - 2) / 2;
        QString text(units, Qt::Uninitialized);
        qFromLittleEndian<char16_t>(data.constData() + 2, units, text.data());
        return text;
    }
    if (data.size() >= 4 && data.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(data.constData() + 3, data.size() - 3);
    return QString::fromUtf8(data);
}

bool isLineEnd(QChar c)
{
    return c == QLatin1Char('\r') || c == QLatin1Char('\n');
}

// atoi: optional blanks, an optional sign, then digits up to the first other character; saturates at the int
// range instead of overflowing.
int readInt(const QString& text)
{
    qsizetype i = 0;
    const auto isBlank = [](QChar c) {
        return c == QLatin1Char(' ') || (c >= QLatin1Char('\t') && c <= QLatin1Char('\r'));
    };
    while (i < text.size() && isBlank(text[i]))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == QLatin1Char('+') || text[i] == QLatin1Char('-')))
        negative = text[i++] == QLatin1Char('-');
    long long value = 0;
    for (; i < text.size() && text[i] >= QLatin1Char('0') && text[i] <= QLatin1Char('9'); ++i)
        value = std::min(value * 10 + (text[i].unicode() - '0'), static_cast<long long>(INT_MAX) + 1);
    if (negative)
        return static_cast<int>(-value);
    return static_cast<int>(std::min(value, static_cast<long long>(INT_MAX)));
}

} // namespace

IniFile::IniFile() : path_(ExeFolder() + QLatin1Char('/') + ExeFileName(false) + QStringLiteral(".ini")) {}

IniFile::IniFile(const QString& path, bool isAbsolute)
    : path_(isAbsolute ? WithForwardSlashes(path) : ExeFolder() + QLatin1Char('/') + WithForwardSlashes(path))
{
}

bool IniFile::Load()
{
    // A FIFO, device or folder is never opened: reading one could wait for ever.
    if (!QFileInfo(path_).isFile())
        return false;
    QFile file(path_);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    Parse(file.readAll());
    return true;
}

bool IniFile::Save() const
{
    QSaveFile file(path_);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write("\xEF\xBB\xBF");
    file.write(ToText().toUtf8());
    return file.commit();
}

void IniFile::Parse(const QByteArray& data)
{
    sections_.clear();
    const QString text = decode(data);
    QString sectionName;
    Section section;
    // A section named twice keeps its later body, a key named twice its later value.
    const auto storeSection = [&] {
        if (!sectionName.isEmpty())
            sections_[sectionName] = std::move(section);
        section.clear();
    };

    qsizetype pos = 0;
    while (pos < text.size()) {
        if (isLineEnd(text[pos])) {
            ++pos;
            continue;
        }
        qsizetype end = pos;
        while (end < text.size() && !isLineEnd(text[end]))
            ++end;
        const QStringView line = QStringView(text).mid(pos, end - pos);
        pos = end;

        if (line.front() == QLatin1Char('[') && line.back() == QLatin1Char(']')) {
            storeSection();
            sectionName = line.mid(1, line.size() - 2).toString();
            continue;
        }
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        const QStringView key = equals < 0 ? line : line.left(equals);
        if (key.startsWith(QLatin1Char('#')))
            continue;
        section[key.toString()] = equals < 0 ? QString() : line.mid(equals + 1).toString();
    }
    storeSection();
}

QString IniFile::ToText() const
{
    QString text;
    const QString lineEnd = QStringLiteral("\r\n");
    for (auto section = sections_.begin(); section != sections_.end(); ++section) {
        if (section != sections_.begin())
            text += lineEnd;
        text += QLatin1Char('[') + section->first + QLatin1Char(']') + lineEnd;
        for (auto entry = section->second.begin(); entry != section->second.end(); ++entry) {
            if (entry != section->second.begin())
                text += lineEnd;
            text += entry->first + QLatin1Char('=') + entry->second;
        }
    }
    return text;
}

void IniFile::SetString(const QString& section, const QString& key, const QString& value)
{
    sections_[section][key] = value;
}

QString IniFile::GetString(const QString& section, const QString& key, const QString& defaultValue) const
{
    const QString* value = find(section, key);
    return value ? *value : defaultValue;
}

void IniFile::SetInt(const QString& section, const QString& key, int value)
{
    SetString(section, key, QString::number(value));
}

int IniFile::GetInt(const QString& section, const QString& key, int defaultValue) const
{
    const QString* value = find(section, key);
    return value ? readInt(*value) : defaultValue;
}

const QString* IniFile::find(const QString& section, const QString& key) const
{
    const auto found = sections_.find(section);
    if (found == sections_.end())
        return nullptr;
    const auto entry = found->second.find(key);
    return entry == found->second.end() ? nullptr : &entry->second;
}

bool IniFile::Remove(const QString& section, const QString& key)
{
    const auto found = sections_.find(section);
    if (found == sections_.end())
        return false;
    if (key.isEmpty()) {
        sections_.erase(found);
        return true;
    }
    return found->second.erase(key) > 0;
}

} // namespace zunbrix
