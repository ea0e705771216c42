#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "orvel/OrvelSession.h"

namespace orvel {

// The session of the test host; every answer settable. By default: AppPath
// "C:\Orvel", AppTitle "Orvel Apskaita", SessionNumber 1, OwnFirm a one-row
// set with OIDR "O00001001", no setting objects.
class TestSession : public OrvelSession {
 public:
  TestSession();

  void SetAppPath(std::string path) { appPath_ = std::move(path); }
  void SetAppTitle(std::string title) { appTitle_ = std::move(title); }
  void SetSessionNumber(int16_t number) { sessionNumber_ = number; }
  void SetOwnFirm(std::shared_ptr<Recordset> firm) { ownFirm_ = std::move(firm); }
  void SetSettingObject(const std::string& oid, std::shared_ptr<Object> object);

  // OrvelSession
  std::string AppPath() override { return appPath_; }
  std::string AppTitle() override { return appTitle_; }
  int16_t SessionNumber() override { return sessionNumber_; }
  std::shared_ptr<Recordset> OwnFirm() override { return ownFirm_; }
  std::shared_ptr<Object> SettingObject(const std::string& oid) override;

 private:
  std::string appPath_ = "C:\\Orvel";
  std::string appTitle_ = "Orvel Apskaita";
  int16_t sessionNumber_ = 1;
  std::shared_ptr<Recordset> ownFirm_;
  std::map<std::string, std::shared_ptr<Object>> settingObjects_;
};

}  // namespace orvel
