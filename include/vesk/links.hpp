#pragma once

// Callback links, handler chains, command maps and the global key-handler chains.
#include <vesk/links/CommandMap.hpp>
#include <vesk/links/HdlChain.hpp>
#include <vesk/links/Link.hpp>

namespace vesk {

// The global key chains live in the message router; without one these do nothing.

// Adds a link to the chain called for key-down messages that the focused window did not handle.
VESK_API void GlAddOnKeyDownHdl(const Link& link);
// Adds a link to the chain called for every key-up message.
VESK_API void GlAddOnKeyUpHdl(const Link& link);
VESK_API void GlRemoveOnKeyDownHdl(const Link& link);
VESK_API void GlRemoveOnKeyUpHdl(const Link& link);
// Saves both key chains on their stacks and empties them.
VESK_API void GlPushKeyLinks();
// Restores each key chain from its stack, when that stack holds a saved chain.
VESK_API void GlPopKeyLinks();

} // namespace vesk
