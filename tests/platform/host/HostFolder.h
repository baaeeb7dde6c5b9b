#pragma once

#include "platform/runtime/Failure.h"
#include "station/FreshFolder.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
