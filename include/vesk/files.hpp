#pragma once

// Files: configuration (profile) files.
#include <vesk/files/Config.hpp>
