#include "inspect/inspect_run.h"
#include "platform/files/descriptor.h"
#include "platform/host/system.h"
#include "platform/process/environment.h"
#include "platform/process/signal_dispositions.h"

int main(int count, char* arguments[]) {
  namespace platform = quillon::platform;
  platform::occupyClosedStandardStreams();
  (void)platform::startEnvironment();
  (void)platform::startSignalMask();
  platform::endProcess(quillon::runInspect({arguments, arguments + count}));
}
