#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelSession.h"

namespace orvel {

class Database;

// The session of the reference host: the application folder (ending in its
// separator, since the module appends file names such as "help\imones.htm"
// straight to it), the title of message boxes, the firm that keeps the books
// (the first firm of the database) and the goods settings record ("O00018021").
class ReferenceSession : public OrvelSession {
 public:
  static constexpr const char* kAppTitle = "Orvel Apskaita";

  ReferenceSession(Database& db, std::string appPath)
      : db_(db), appPath_(WithSeparator(std::move(appPath))) {}

  std::string AppPath() override { return appPath_; }
  std::string AppTitle() override { return kAppTitle; }
  int16_t SessionNumber() override { return 1; }
  std::shared_ptr<Recordset> OwnFirm() override;
  std::shared_ptr<Object> SettingObject(const std::string& oid) override;

 private:
  static std::string WithSeparator(std::string folder) {
    if (!folder.empty() && folder.back() != '/') folder += '/';
    return folder;
  }

  Database& db_;
  std::string appPath_;
};

}  // namespace orvel
