#pragma once

#include <PerchAppLibrary/record/BaseEntity.hpp>
