#include "launcher/entry.h"
#include "platform/descriptor.h"
#include "platform/process.h"
#include "platform/system.h"

int main(int count, char* arguments[]) {
  namespace platform = quillon::platform;
  platform::occupyClosedStandardStreams();
  (void)platform::startEnvironment();
  platform::endProcess(quillon::runLauncher({arguments, arguments + count}));
}
