#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "orvel/Locale.h"
#include "orvel/Ui.h"

namespace orvel {

class CallLog;
class FakeOrvelGrid;

// The Ui seam of the test host. Message boxes are logged in the Message
// channel ("MsgBox 49 Orvel Apskaita Ar tikrai norite panaikinti?": flags,
// title, prompt) and kept; each answers the next queued button, or with none
// queued the box's first button (OK for OK-only and OK/Cancel, Yes for
// Yes/No and Yes/No/Cancel). Locale (Lithuanian), today (2026-11-23) and the
// screen width (15360 twips) are settable; DoEvents is counted and every
// mouse pointer set is kept.
//
// Strict once a complaint is set (test programs set it for the whole
// process, tests/support/StrictUi.h): a box or a popup with entries that
// nobody queued an answer for is a complaint naming its text, and so are
// answers, popup picks and modal scripts still queued when Verify runs (the
// destructor and TestHost's run it). A test that lets boxes and popups
// through on purpose says so with AllowUnscripted. Without a complaint (the
// demo) every box takes its first button quietly.
//
// Modal forms and popup menus are scripted too. ShowModal logs
// "ShowModal <form>" in the Window channel, loads and shows the form, runs
// the next queued modal script on it (the user filling the dialog and
// pressing OK), and hides the form if it is still visible afterwards (the
// user closing it). PopupMenu logs "PopupMenu <menu>" in the Window channel
// and picks the next queued entry name, raising its Click; a queued "" (the
// user closing the menu), or an entry that is hidden or disabled, picks
// nothing. A popup with no
// visible entry shows nothing and takes no pick from the queue. Each popup
// is kept with the entries it showed. NewOrvelGrid hands out FakeOrvelGrids
// and keeps them.
class ScriptedUi : public Ui {
 public:
  using ModalScript = std::function<void(Form&)>;
  struct Popup {
    std::string menu;
    std::vector<std::string> shown;  // the visible entries, in order
    std::string picked;              // "" when nothing was picked
  };

  struct Box {
    std::string prompt;
    int32_t flags = 0;
    std::string title;
    int32_t answer = 0;
  };

  static constexpr double kDefaultToday = 46349;  // 2026-11-23
  static constexpr int32_t kDefaultScreenWidth = 15360;

  using Complaint = std::function<void(const std::string&)>;

  explicit ScriptedUi(std::shared_ptr<CallLog> log);
  ~ScriptedUi() override;

  // Process-wide: what an unscripted box or popup, or a leftover answer, is.
  static void SetComplaint(Complaint complaint);
  // This Ui lets unanswered boxes (first button) and popups (no pick) through.
  void AllowUnscripted(bool allow = true) { allowUnscripted_ = allow; }
  // Complains of every answer, pick and modal script still queued, and drops them.
  void Verify();

  void QueueAnswer(int32_t button) { answers_.push_back(button); }
  size_t PendingAnswers() const { return answers_.size(); }
  void ClearAnswers() { answers_.clear(); }
  const std::vector<Box>& Boxes() const { return boxes_; }
  void ClearBoxes() { boxes_.clear(); }

  void SetLocale(Locale locale) { locale_ = std::move(locale); }
  void SetToday(orvel::Date today) { today_ = today; }
  void SetScreenWidth(int32_t twips) { screenWidth_ = twips; }
  int DoEventsCount() const { return doEvents_; }
  const std::vector<int32_t>& MousePointers() const { return pointers_; }

  void QueueModal(ModalScript script) { modalScripts_.push_back(std::move(script)); }
  size_t PendingModalScripts() const { return modalScripts_.size(); }
  void QueuePopupPick(std::string entryName) { popupPicks_.push_back(std::move(entryName)); }
  size_t PendingPopupPicks() const { return popupPicks_.size(); }
  const std::vector<Popup>& Popups() const { return popups_; }
  // Every grid handed out, oldest first.
  const std::vector<std::shared_ptr<FakeOrvelGrid>>& Grids() const { return grids_; }

  // The first button of a box of these flags.
  static int32_t FirstButton(int32_t flags);

  // LocaleSource
  const Locale& CurrentLocale() const override { return locale_; }
  // Ui
  int32_t MsgBox(const std::string& prompt, int32_t flags, const std::string& title) override;
  void SetMousePointer(int32_t pointer) override;
  int32_t GetMousePointer() const override { return pointer_; }
  void DoEvents() override { ++doEvents_; }
  int32_t ScreenWidth() const override { return screenWidth_; }
  orvel::Date Today() const override { return today_; }
  void ShowModal(Form& form) override;
  void PopupMenu(Menu& menu) override;
  std::shared_ptr<OrvelGrid> NewOrvelGrid() override;

 private:
  void Complain(const std::string& what) const;

  std::shared_ptr<CallLog> log_;
  bool allowUnscripted_ = false;
  std::deque<int32_t> answers_;
  std::vector<Box> boxes_;
  Locale locale_ = Locale::Lithuanian();
  orvel::Date today_{kDefaultToday};
  int32_t screenWidth_ = kDefaultScreenWidth;
  int32_t pointer_ = vbDefault;
  std::vector<int32_t> pointers_;
  int doEvents_ = 0;
  std::deque<ModalScript> modalScripts_;
  std::deque<std::string> popupPicks_;
  std::vector<Popup> popups_;
  std::vector<std::shared_ptr<FakeOrvelGrid>> grids_;
};

}  // namespace orvel
