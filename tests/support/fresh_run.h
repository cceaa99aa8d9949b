// The fixture of all tests that run parts of the converter.
#pragma once

#include <gtest/gtest.h>

#include "reader/run.h"
#include "support/convert.h"

// Each test starts as a run does, and leaves nothing behind.
class FreshRun : public testing::Test
{
protected:
    FreshRun() { reset_run(); }
    ~FreshRun() override { reset_run(); }
};
