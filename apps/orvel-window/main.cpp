// orvel-window: the reference host in windows. Opens (and on first start
// creates) the sample database, loads libOrvelCommonUI.so at run time,
// registers it, and shows the catalogue tree with the module's windows.
//
//   orvel-window [--db PATH] [--user NAME] [--module PATH] [--trace] [--rates-mirror]
//
// The options are those of orvel-host (a --script is not run here).
// --trace prints every business call the module makes to standard output.
// Printouts are written as PDF files under the system's temp folder
// (orvel-print/); a preview is shown when the module asks for one.
#include <QApplication>
#include <QMessageBox>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "bizlayer/BusinessLayer.h"
#include "hostkit/LoopbackRateService.h"
#include "qthost/MainWindow.h"
#include "qthost/PdfPrint.h"
#include "qthost/QtPrompter.h"
#include "qthost/QtUi.h"
#include "refhost/HostCommandLine.h"
#include "refhost/ModuleLibrary.h"
#include "refhost/ReferenceHost.h"
#include "refhost/ReferenceHostClasses.h"

int main(int argc, char** argv) {
  orvel::HostCommandLine command;
  command.options.modulePath =
      orvel::ModuleLibrary::DefaultPath(ORVEL_INSTALLED_MODULE, ORVEL_DEFAULT_MODULE);
  command.options.appPath = std::filesystem::current_path().string();
  if (!command.Parse(argc, argv)) {
    std::cerr << "usage: orvel-window " << orvel::HostCommandLine::Usage() << "\n";
    return 2;
  }
  QApplication app(argc, argv);
  QApplication::setApplicationName("orvel-window");

  std::unique_ptr<orvel::LoopbackRateService> ratesMirror;
  if (command.ratesMirror) ratesMirror = orvel::StartTodaysRatesMirror();

  orvel::QtPrompter prompter(&std::cerr);
  auto ui = std::make_shared<orvel::QtUi>();
  orvel::PdfPrint printout;
  orvel::ReferenceHost host(prompter, ui);
  std::string error;
  if (!host.Start(command.options, error)) {
    std::cerr << "orvel-window: " << error << "\n";
    // With no screen (the offscreen platform) no one could close the box.
    if (QGuiApplication::platformName() != "offscreen") {
      QMessageBox::critical(nullptr, "Orvel", QString::fromStdString(error));
    }
    return 1;
  }
  host.HostClasses().SetPrintRenderer(
      [&printout, &prompter](const orvel::PrintDocument::Content& content, bool preview) {
        std::string file = printout.WritePdf(content);
        prompter.Say(file.empty() ? "Spaudinys neįrašytas: " + printout.Folder()
                                  : "Spaudinys įrašytas: " + file);
        if (preview) printout.Preview(content);
      });
  if (command.trace) {
    host.Layer().SetCallObserver(
        [](const char* op, const std::string& name, const std::string& param) {
          std::cout << op << " " << name << " " << param << std::endl;
        });
  }

  int status = 0;
  {
    orvel::MainWindow window(host, *ui, prompter, command.options.databasePath,
                             host.UserName());
    printout.SetParentWidget(&window);
    window.show();
    status = QApplication::exec();
  }
  return status;
}
