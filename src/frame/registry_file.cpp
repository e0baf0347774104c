#include "frame/registry_backends.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QUuid>
#include <QtEndian>

#include <algorithm>

// Each value is one INI entry under the key's path, its text tagged with its type so that a number, a text and
// bytes stay apart: "dword:42", "sz:some text", "binary:<base64>". QSettings writes the file through a temporary
// file and a rename, so a crash mid-write leaves the previous file intact.
//
// Bytes of kSideFileBytes and more (the designer's undo history runs to megabytes) live in a file of their own
// in the folder "<ini name>.values" beside the INI file, and the entry names it: "binary-file:<file name>".
// Kept inline they would make every later write of a small value rewrite and reparse the whole INI file. The
// side file is written atomically before the entry points at it, and removed only after the entry has gone, so
// a crash at any point leaves a readable value, at worst beside an unused file.
//
// A second running copy of the program writes the same file. QSettings locks the INI file for each write, and
// each write of a side file makes a file of a new name, never one that an entry may still name: so a copy that
// removes the side file it saw before its write never removes another copy's newer one, and a reader that finds
// the file it was told of gone reads the entry again. Two copies writing one value at once may leave the loser's
// side file unused.

namespace zunbrix::registry::file {

namespace {

constexpr qsizetype kSideFileBytes = 64 * 1024;
// Reads of an entry whose side file went while it was read: each finds the entry changed by another writer.
constexpr int kReadTries = 5;

const QString kDword = QStringLiteral("dword:");
const QString kString = QStringLiteral("sz:");
const QString kBinary = QStringLiteral("binary:");
const QString kBinaryFile = QStringLiteral("binary-file:");

QString entryName(const QString& key, const QString& name)
{
    QString group = key;
    group.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return name.isEmpty() ? group : group + QLatin1Char('/') + name;
}

QString sideFolder(const QString& path)
{
    const QFileInfo ini(path);
    return ini.dir().filePath(ini.completeBaseName() + QStringLiteral(".values"));
}

// Key and value names may hold any character; the file name keeps the value name's letters and digits for a
// reader's sake, a hash of the full entry and a part new for each write, so it is always a new plain file in the
// side folder.
QString sideFileName(const QString& entry)
{
    QString readable;
    for (const QChar c : entry.mid(entry.lastIndexOf(QLatin1Char('/')) + 1)) {
        if (readable.size() < 32 && c.isLetterOrNumber() && c.unicode() < 0x80)
            readable += c;
    }
    const QByteArray hash = QCryptographicHash::hash(entry.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    const QString written = QUuid::createUuid().toString(QUuid::Id128).left(16);
    return readable + QLatin1Char('-') + QString::fromLatin1(hash) + QLatin1Char('-') + written +
           QStringLiteral(".bin");
}

// The side file an entry names, or "" when it names none or a name this store would not have made (an edited
// INI file must not lead the store to read or remove files elsewhere).
QString sideFileOf(const QString& path, const QString& entry)
{
    if (!entry.startsWith(kBinaryFile))
        return {};
    const QString name = entry.mid(kBinaryFile.size());
    const bool plain = !name.isEmpty() && !name.startsWith(QLatin1Char('.')) &&
                       std::all_of(name.cbegin(), name.cend(), [](QChar c) {
                           return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == u'-' || c == u'.');
                       });
    return plain ? QDir(sideFolder(path)).filePath(name) : QString();
}

bool writeSideFile(const QString& file, const QByteArray& bytes)
{
    if (!QDir().mkpath(QFileInfo(file).absolutePath()))
        return false;
    QSaveFile out(file);
    return out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.commit();
}

QString encode(const StoredValue& value)
{
    switch (value.type) {
    case ValueType::Dword:
        return kDword + QString::number(qFromLittleEndian<quint32>(value.bytes.constData()));
    case ValueType::String: {
        const qsizetype length = value.bytes.size() / 2 - 1; // without the terminating zero
        QString text(length, Qt::Uninitialized);
        qFromLittleEndian<char16_t>(value.bytes.constData(), length, text.data());
        return kString + text;
    }
    case ValueType::Binary:
        return kBinary + QString::fromLatin1(value.bytes.toBase64());
    }
    return {};
}

std::optional<StoredValue> decode(const QString& path, const QString& entry)
{
    if (entry.startsWith(kDword)) {
        bool ok = false;
        const quint32 number = QStringView(entry).mid(kDword.size()).toUInt(&ok);
        if (!ok)
            return std::nullopt;
        QByteArray bytes(4, '\0');
        qToLittleEndian(number, bytes.data());
        return StoredValue{ValueType::Dword, bytes};
    }
    if (entry.startsWith(kString)) {
        const QStringView text = QStringView(entry).mid(kString.size());
        QByteArray bytes((text.size() + 1) * 2, '\0');
        qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data());
        return StoredValue{ValueType::String, bytes};
    }
    if (entry.startsWith(kBinary)) {
        const auto decoded = QByteArray::fromBase64Encoding(entry.mid(kBinary.size()).toLatin1(),
                                                            QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded)
            return std::nullopt;
        return StoredValue{ValueType::Binary, *decoded};
    }
    QFile side(sideFileOf(path, entry));
    if (side.fileName().isEmpty() || !side.open(QIODevice::ReadOnly))
        return std::nullopt;
    return StoredValue{ValueType::Binary, side.readAll()};
}

bool saved(QSettings& settings)
{
    settings.sync();
    return settings.status() == QSettings::NoError;
}

// After the entry has changed: the side file it named before, unless it names that file still.
void removeOldSideFile(const QString& path, const QString& before, const QString& now)
{
    const QString old = sideFileOf(path, before);
    if (!old.isEmpty() && old != sideFileOf(path, now))
        QFile::remove(old);
}

} // namespace

bool write(const QString& path, const QString& key, const QString& name, const StoredValue& value)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    const QString entry = entryName(key, name);
    QSettings settings(path, QSettings::IniFormat);
    const QString before = settings.value(entry).toString();
    // Unchanged: not worth a new file and a rename, which every build would cost.
    if (const std::optional<StoredValue> stored = decode(path, before);
        stored && stored->type == value.type && stored->bytes == value.bytes)
        return true;
    QString text;
    if (value.type == ValueType::Binary && value.bytes.size() >= kSideFileBytes) {
        const QString file = sideFileName(entry);
        if (!writeSideFile(QDir(sideFolder(path)).filePath(file), value.bytes))
            return false;
        text = kBinaryFile + file;
    } else {
        text = encode(value);
    }
    settings.setValue(entry, text);
    if (!saved(settings))
        return false;
    removeOldSideFile(path, before, text);
    return true;
}

std::optional<StoredValue> read(const QString& path, const QString& key, const QString& name)
{
    QString failed;
    for (int tries = 0; tries < kReadTries; ++tries) {
        const QSettings settings(path, QSettings::IniFormat);
        const QVariant entry = settings.value(entryName(key, name));
        if (entry.typeId() != QMetaType::QString || entry.toString() == failed)
            return std::nullopt;
        std::optional<StoredValue> value = decode(path, entry.toString());
        if (value)
            return value;
        failed = entry.toString();
    }
    return std::nullopt;
}

// An INI file has no empty sections, so a key exists as soon as it holds a value; creating one only makes sure
// the store can be written.
bool createKey(const QString& path, const QString&)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    QSettings settings(path, QSettings::IniFormat);
    return saved(settings) && settings.isWritable();
}

bool deleteValue(const QString& path, const QString& key, const QString& name)
{
    QSettings settings(path, QSettings::IniFormat);
    const QString entry = entryName(key, name);
    if (!settings.contains(entry))
        return false;
    const QString before = settings.value(entry).toString();
    settings.remove(entry);
    if (!saved(settings))
        return false;
    removeOldSideFile(path, before, QString());
    return true;
}

} // namespace zunbrix::registry::file
