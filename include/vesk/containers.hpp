#pragma once

// The block container of untyped pointers and the sorted key table built on it.
#include <vesk/containers/Container.hpp>
#include <vesk/containers/Table.hpp>
