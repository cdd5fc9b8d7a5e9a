#include "launcher/entry.h"
#include "platform/process/environment.h"
#include "platform/process/process.h"
#include "platform/process/signals.h"

int main(int count, char* arguments[]) {
  namespace platform = quillon::platform;
  platform::occupyClosedStandardStreams();
  (void)platform::startEnvironment();
  (void)platform::startSignalMask();
  platform::endProcess(quillon::runLauncher({arguments, arguments + count}));
}
