#include "update/update_records.h"

#include <rapidjson/document.h>

namespace zunbrix {

namespace {

// Reads the keys of one record. Every key is absent when the text is no JSON object.
class RecordReader {
public:
    explicit RecordReader(const QByteArray& json)
    {
        // QByteArray keeps a terminating zero, so the text is read as the zero-terminated string it is.
        document_.Parse(json.constData());
        valid_ = !document_.HasParseError() && document_.IsObject();
    }

    void read(const char* key, int& out) const
    {
        if (const rapidjson::Value* value = find(key); value && value->IsInt())
            out = value->GetInt();
    }
    void read(const char* key, bool& out) const
    {
        if (const rapidjson::Value* value = find(key); value && value->IsBool())
            out = value->GetBool();
    }
    void read(const char* key, QString& out) const
    {
        if (const rapidjson::Value* value = find(key); value && value->IsString())
            out = QString::fromUtf8(value->GetString(), value->GetStringLength());
    }
    // An object of language name to text; members that are no text are left out.
    void read(const char* key, LanguageTexts& out) const
    {
        const rapidjson::Value* value = find(key);
        if (!value || !value->IsObject())
            return;
        for (auto member = value->MemberBegin(); member != value->MemberEnd(); ++member) {
            if (member->value.IsString()) {
                out.insert(QString::fromUtf8(member->name.GetString(), member->name.GetStringLength()),
                           QString::fromUtf8(member->value.GetString(), member->value.GetStringLength()));
            }
        }
    }

private:
    const rapidjson::Value* find(const char* key) const
    {
        if (!valid_ || !document_.HasMember(key))
            return nullptr;
        return &document_[key];
    }

    rapidjson::Document document_;
    bool valid_ = false;
};

} // namespace

NotifyRecord ParseNotifyRecord(const QByteArray& json)
{
    const RecordReader reader(json);
    NotifyRecord record;
    reader.read("notify_id", record.notifyId);
    reader.read("restart_show", record.restartShow);
    reader.read("notify_message", record.notifyMessage);
    return record;
}

UpdateRecord ParseUpdateRecord(const QByteArray& json)
{
    const RecordReader reader(json);
    UpdateRecord record;
    reader.read("version", record.version);
    reader.read("url_x86", record.urlX86);
    reader.read("url_linux_x64", record.urlLinuxX64);
    reader.read("notify_id", record.notifyId);
    reader.read("force_update", record.forceUpdate);
    reader.read("update_describe", record.updateDescribe);
    reader.read("sha256", record.sha256);
    return record;
}

QString TextFor(const LanguageTexts& texts, Language language)
{
    return texts.value(StringTable::LanguageName(language));
}

} // namespace zunbrix
