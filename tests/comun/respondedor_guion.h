#pragma once
// Scripted answerer for tests and the CLI lives in src (basic/respondedor_guion.h); this
// header only brings it in for the tests.
#include "basic/respondedor_guion.h"
