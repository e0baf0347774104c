#include "frame/registry_store.h"

#include "frame/registry_backends.h"

#include <QDir>
#include <QStandardPaths>
#include <QtEndian>

#include <optional>

namespace zunbrix {

using registry::StoredValue;
using registry::ValueType;

namespace {

QString configFolder()
{
    const QString redirected = qEnvironmentVariable("ZUNBRIX_CONFIG_DIR");
    if (!redirected.isEmpty())
        return redirected;
#ifdef Q_OS_WIN
    return {};
#else
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return base.isEmpty() ? QString() : base + QStringLiteral("/Zunbrix");
#endif
}

bool write(const QString& key, const QString& name, const StoredValue& value)
{
    const QString path = RegistryStore::FilePath();
#ifdef Q_OS_WIN
    if (path.isEmpty())
        return registry::native::write(key, name, value);
#endif
    return !path.isEmpty() && registry::file::write(path, key, name, value);
}

std::optional<StoredValue> read(const QString& key, const QString& name)
{
    const QString path = RegistryStore::FilePath();
#ifdef Q_OS_WIN
    if (path.isEmpty())
        return registry::native::read(key, name);
#endif
    if (path.isEmpty())
        return std::nullopt;
    return registry::file::read(path, key, name);
}

std::optional<QByteArray> readTyped(const QString& key, const QString& name, ValueType type)
{
    std::optional<StoredValue> value = read(key, name);
    if (!value || value->type != type)
        return std::nullopt;
    return std::move(value->bytes);
}

} // namespace

QString RegistryStore::FilePath()
{
    const QString folder = configFolder();
    return folder.isEmpty() ? QString() : QDir(folder).filePath(QStringLiteral("Zunbrix.ini"));
}

bool RegistryStore::SetDword(const QString& key, const QString& name, quint32 value)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return write(key, name, {ValueType::Dword, bytes});
}

bool RegistryStore::GetDword(const QString& key, const QString& name, quint32& out)
{
    const std::optional<QByteArray> bytes = readTyped(key, name, ValueType::Dword);
    if (!bytes || bytes->size() != 4)
        return false;
    out = qFromLittleEndian<quint32>(bytes->constData());
    return true;
}

bool RegistryStore::SetString(const QString& key, const QString& name, const QString& text)
{
    QByteArray bytes((text.size() + 1) * 2, '\0');
    qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data());
    return write(key, name, {ValueType::String, bytes});
}

bool RegistryStore::GetString(const QString& key, const QString& name, QString& out)
{
    const std::optional<QByteArray> bytes = readTyped(key, name, ValueType::String);
    if (!bytes)
        return false;
    QString text(bytes->size() / 2, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(bytes->constData(), text.size(), text.data());
    // The stored form ends in a zero; a value written by other means may have several or none.
    const qsizetype end = text.indexOf(QChar(0));
    if (end >= 0)
        text.truncate(end);
    out = text;
    return true;
}

bool RegistryStore::SetBinary(const QString& key, const QString& name, const QByteArray& data)
{
    return write(key, name, {ValueType::Binary, data});
}

bool RegistryStore::GetBinary(const QString& key, const QString& name, QByteArray& out)
{
    std::optional<QByteArray> bytes = readTyped(key, name, ValueType::Binary);
    if (!bytes)
        return false;
    out = std::move(*bytes);
    return true;
}

bool RegistryStore::GetSize(const QString& key, const QString& name, quint32& sizeOut)
{
    const std::optional<StoredValue> value = read(key, name);
    if (!value)
        return false;
    sizeOut = static_cast<quint32>(value->bytes.size());
    return true;
}

bool RegistryStore::CreateKey(const QString& key)
{
    const QString path = FilePath();
#ifdef Q_OS_WIN
    if (path.isEmpty())
        return registry::native::createKey(key);
#endif
    return !path.isEmpty() && registry::file::createKey(path, key);
}

bool RegistryStore::DeleteValue(const QString& key, const QString& name)
{
    const QString path = FilePath();
#ifdef Q_OS_WIN
    if (path.isEmpty())
        return registry::native::deleteValue(key, name);
#endif
    return !path.isEmpty() && registry::file::deleteValue(path, key, name);
}

} // namespace zunbrix
