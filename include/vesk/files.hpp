#pragma once

// Files: wildcard patterns for names.
#include <vesk/files/WildCard.hpp>
