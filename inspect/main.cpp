#include "inspect/inspect_run.h"
#include "platform/files/descriptor.h"
#include "platform/system/environment.h"
#include "platform/system/signal_dispositions.h"
#include "platform/system/system.h"

int main(int count, char* arguments[]) {
  namespace platform = quillon::platform;
  platform::occupyClosedStandardStreams();
  (void)platform::startEnvironment();
  (void)platform::startSignalMask();
  platform::endProcess(quillon::runInspect({arguments, arguments + count}));
}
