#pragma once

using CFDictionaryRef = const struct CFDictionary*;
using CFMachPortRef = struct CFMachPort*;
CFDictionaryRef CGSessionCopyCurrentDictionary();
void CFRelease(const void* object);
CFMachPortRef CGWindowServerCreateServerPort();
void CFMachPortSetInvalidationCallBack(CFMachPortRef port, void (*callBack)(CFMachPortRef, void*));
