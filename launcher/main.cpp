#include "launcher/entry.h"
#include "platform/descriptor.h"
#include "platform/system.h"

int main(int count, char* arguments[]) {
  quillon::platform::occupyClosedStandardStreams();
  quillon::platform::endProcess(quillon::runLauncher({arguments, arguments + count}));
}
