#pragma once

// The whole library.

#include <pelor/base.h>
#include <pelor/dgn.h>
#include <pelor/mi.h>
#include <pelor/mif.h>
#include <pelor/version.h>
