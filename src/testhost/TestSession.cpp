#include "testhost/TestSession.h"

#include "host/MemoryRecordset.h"

namespace orvel {

TestSession::TestSession() {
  auto firm = std::make_shared<MemoryRecordset>(std::vector<std::string>{"OIDR"});
  firm->AddRow({Variant("O00001001")});
  firm->MoveFirst();
  ownFirm_ = std::move(firm);
}

void TestSession::SetSettingObject(const std::string& oid, std::shared_ptr<Object> object) {
  if (object) {
    settingObjects_[oid] = std::move(object);
  } else {
    settingObjects_.erase(oid);
  }
}

std::shared_ptr<Object> TestSession::SettingObject(const std::string& oid) {
  auto it = settingObjects_.find(oid);
  return it == settingObjects_.end() ? nullptr : it->second;
}

}  // namespace orvel
