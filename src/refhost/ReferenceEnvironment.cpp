#include "refhost/ReferenceEnvironment.h"

#include "bizlayer/Database.h"

namespace orvel {

void ReferenceEnvironment::SaveUserSetting(const std::string& section, const std::string& key,
                                           const std::string& value) {
  try {
    auto save =
        db_.Prepare("INSERT OR REPLACE INTO user_settings (UserID, Name, Value) VALUES (?, ?, ?)");
    save.BindAll(userId_, section + "/" + key, value).Run();
  } catch (...) {
    // A setting that cannot be kept is lost; the session goes on.
  }
}

std::string ReferenceEnvironment::GetUserSetting(const std::string& section, const std::string& key,
                                                 const std::string& defaultValue) {
  try {
    auto read = db_.Prepare("SELECT Value FROM user_settings WHERE UserID = ? AND Name = ?");
    read.BindAll(userId_, section + "/" + key);
    if (read.Step()) {
      Variant value = read.Column(0);
      if (value.IsString()) return value.String();
    }
  } catch (...) {
  }
  return defaultValue;
}

}  // namespace orvel
