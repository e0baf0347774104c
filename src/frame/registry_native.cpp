#include "frame/registry_backends.h"

#include <windows.h>

// The real registry under HKEY_CURRENT_USER, with its own value types.

namespace zunbrix::registry::native {

namespace {

const wchar_t* wide(const QString& text)
{
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

DWORD registryType(ValueType type)
{
    switch (type) {
    case ValueType::Dword: return REG_DWORD;
    case ValueType::String: return REG_SZ;
    case ValueType::Binary: return REG_BINARY;
    }
    return REG_NONE;
}

std::optional<ValueType> valueType(DWORD type)
{
    switch (type) {
    case REG_DWORD: return ValueType::Dword;
    case REG_SZ: return ValueType::String;
    case REG_BINARY: return ValueType::Binary;
    default: return std::nullopt;
    }
}

} // namespace

bool write(const QString& key, const QString& name, const StoredValue& value)
{
    return RegSetKeyValueW(HKEY_CURRENT_USER, wide(key), wide(name), registryType(value.type),
                           value.bytes.constData(), static_cast<DWORD>(value.bytes.size())) == ERROR_SUCCESS;
}

std::optional<StoredValue> read(const QString& key, const QString& name)
{
    // The value may grow between the size query and the read; ask again until it fits.
    for (;;) {
        DWORD type = REG_NONE;
        DWORD size = 0;
        if (RegGetValueW(HKEY_CURRENT_USER, wide(key), wide(name), RRF_RT_ANY | RRF_NOEXPAND, &type, nullptr,
                         &size) != ERROR_SUCCESS)
            return std::nullopt;
        QByteArray bytes(static_cast<qsizetype>(size), '\0');
        const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, wide(key), wide(name), RRF_RT_ANY | RRF_NOEXPAND,
                                            &type, bytes.data(), &size);
        if (status == ERROR_MORE_DATA)
            continue;
        if (status != ERROR_SUCCESS)
            return std::nullopt;
        const std::optional<ValueType> known = valueType(type);
        if (!known)
            return std::nullopt;
        bytes.resize(static_cast<qsizetype>(size));
        return StoredValue{*known, bytes};
    }
}

bool createKey(const QString& key)
{
    HKEY handle = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, wide(key), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        &handle, nullptr) != ERROR_SUCCESS)
        return false;
    RegCloseKey(handle);
    return true;
}

bool deleteValue(const QString& key, const QString& name)
{
    return RegDeleteKeyValueW(HKEY_CURRENT_USER, wide(key), wide(name)) == ERROR_SUCCESS;
}

} // namespace zunbrix::registry::native
