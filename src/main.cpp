#include "platform/forms.h"
#include "settings/mod_Main.h"

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  nimbrel::StartProgram();
  return application.Run();
}
