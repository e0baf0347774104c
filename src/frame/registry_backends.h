#pragma once

// The two places RegistryStore can keep values. Internal to the store.

#include <QByteArray>
#include <QString>

#include <optional>

namespace zunbrix::registry {

enum class ValueType { Dword, String, Binary };

// A value in the registry's own byte form: a number as 4 bytes little-endian, a text as UTF-16LE with its
// terminating zero, bytes as they are. Its size is what GetSize reports.
struct StoredValue {
    ValueType type;
    QByteArray bytes;
};

// An INI file of typed entries at `path`, large bytes in files of their own beside it; written atomically.
namespace file {
bool write(const QString& path, const QString& key, const QString& name, const StoredValue& value);
std::optional<StoredValue> read(const QString& path, const QString& key, const QString& name);
bool createKey(const QString& path, const QString& key);
bool deleteValue(const QString& path, const QString& key, const QString& name);
} // namespace file

#ifdef Q_OS_WIN
// The registry under HKEY_CURRENT_USER.
namespace native {
bool write(const QString& key, const QString& name, const StoredValue& value);
std::optional<StoredValue> read(const QString& key, const QString& name);
bool createKey(const QString& key);
bool deleteValue(const QString& key, const QString& name);
} // namespace native
#endif

} // namespace zunbrix::registry
