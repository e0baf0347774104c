#include "frame/registry_backends.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QtEndian>

// Each value is one INI entry under the key's path, its text tagged with its type so that a number, a text and
// bytes stay apart: "dword:42", "sz:some text", "binary:<base64>". QSettings writes the file through a temporary
// file and a rename, so a crash mid-write leaves the previous file intact.

namespace zunbrix::registry::file {

namespace {

const QString kDword = QStringLiteral("dword:");
const QString kString = QStringLiteral("sz:");
const QString kBinary = QStringLiteral("binary:");

QString entryName(const QString& key, const QString& name)
{
    QString group = key;
    group.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return name.isEmpty() ? group : group + QLatin1Char('/') + name;
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

std::optional<StoredValue> decode(const QString& entry)
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
    return std::nullopt;
}

bool saved(QSettings& settings)
{
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace

bool write(const QString& path, const QString& key, const QString& name, const StoredValue& value)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    QSettings settings(path, QSettings::IniFormat);
    settings.setValue(entryName(key, name), encode(value));
    return saved(settings);
}

std::optional<StoredValue> read(const QString& path, const QString& key, const QString& name)
{
    const QSettings settings(path, QSettings::IniFormat);
    const QVariant entry = settings.value(entryName(key, name));
    if (entry.typeId() != QMetaType::QString)
        return std::nullopt;
    return decode(entry.toString());
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
    settings.remove(entry);
    return saved(settings);
}

} // namespace zunbrix::registry::file
