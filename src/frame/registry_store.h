#pragma once

#include <QByteArray>
#include <QString>

namespace zunbrix {

// Typed settings of the current user, keyed like the registry: a key path such as "Software\\Zunbrix\\MenuV2"
// and a value name. Each value keeps its type (number, text, bytes); reading it as another type fails, as if it
// were absent. Reads leave `out` untouched on failure. Writes create the key when needed.
//
// On Windows the values live in the registry under HKEY_CURRENT_USER as REG_DWORD, REG_SZ and REG_BINARY.
// Elsewhere they live in an INI file, Zunbrix.ini, in the user's config folder; the environment variable
// ZUNBRIX_CONFIG_DIR names another folder for it (tests and scripted runs use a private one), on every platform.
class RegistryStore {
public:
    static bool SetDword(const QString& key, const QString& name, quint32 value);
    static bool GetDword(const QString& key, const QString& name, quint32& out);
    static bool SetString(const QString& key, const QString& name, const QString& text);
    static bool GetString(const QString& key, const QString& name, QString& out);
    static bool SetBinary(const QString& key, const QString& name, const QByteArray& data);
    static bool GetBinary(const QString& key, const QString& name, QByteArray& out);
    // The stored size in bytes, as the registry counts it: 4 for a number, (length + 1) * 2 for a text.
    static bool GetSize(const QString& key, const QString& name, quint32& sizeOut);
    static bool CreateKey(const QString& key);
    static bool DeleteValue(const QString& key, const QString& name);

    // The settings file when the store is file-based (always so when ZUNBRIX_CONFIG_DIR is set); "" otherwise.
    static QString FilePath();
};

} // namespace zunbrix
