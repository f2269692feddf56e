#include "app/mod_Main.h"
#include "platform/system.h"
#include "settings/Folders.h"
#include "shell/State.h"
#include "toolkit/forms.h"

int main(int argc, char** argv) {
  const toolkit::Application application(argc, argv);
  nimbrel::ui.folders = nimbrel::FoldersOf(platform::ApplicationFolder());
  nimbrel::StartProgram();
  const int code = toolkit::Application::Run();
  // The session can end the event loop. No form may outlive the application.
  nimbrel::ui.forms = {};
  return code;
}
