#pragma once

// Files: configuration (profile) files and wildcard patterns for names.
#include <vesk/files/Config.hpp>
#include <vesk/files/WildCard.hpp>
