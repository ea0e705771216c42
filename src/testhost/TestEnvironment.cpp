#include "testhost/TestEnvironment.h"

#include "testhost/CallLog.h"

namespace orvel {

TestEnvironment::TestEnvironment(std::shared_ptr<CallLog> log) : log_(std::move(log)) {}

void TestEnvironment::PresetSetting(const std::string& section, const std::string& key,
                                    std::string value) {
  settings_[{section, key}] = std::move(value);
}

std::optional<std::string> TestEnvironment::StoredSetting(const std::string& section,
                                                          const std::string& key) const {
  auto it = settings_.find({section, key});
  if (it == settings_.end()) return std::nullopt;
  return it->second;
}

void TestEnvironment::SaveUserSetting(const std::string& section, const std::string& key,
                                      const std::string& value) {
  log_->Add(Channel::Settings, "SaveUserSetting", {section, key, value});
  settings_[{section, key}] = value;
}

std::string TestEnvironment::GetUserSetting(const std::string& section, const std::string& key,
                                            const std::string& defaultValue) {
  auto it = settings_.find({section, key});
  return it == settings_.end() ? defaultValue : it->second;
}

}  // namespace orvel
