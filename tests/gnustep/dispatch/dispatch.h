#pragma once

using dispatch_queue_t = struct DispatchQueue*;
dispatch_queue_t dispatch_get_main_queue();
void dispatch_async_f(dispatch_queue_t queue, void* context, void (*work)(void*));
