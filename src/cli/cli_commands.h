#pragma once

#include "cli/cli_arguments.h"

namespace zunbrix::cli {

inline constexpr int kExitSuccess = 0;
inline constexpr int kExitFailure = 1; // refused or failed
inline constexpr int kExitUsage = 2;

int RunBuildCommand(const CliRequest& request);
int RunExportCommand(const CliRequest& request);
int RunCheckCommand(const CliRequest& request);

} // namespace zunbrix::cli
