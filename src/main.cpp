#include "settings/mod_Main.h"
#include "toolkit/forms.h"

int main(int argc, char** argv) {
  toolkit::Application application(argc, argv);
  nimbrel::StartProgram();
  return application.Run();
}
