#pragma once

#include "multicart/build_options.h"
#include "cli/cli_arguments.h"

namespace zunbrix::cli {

// The stored settings with the command line's options laid over them, for this run only.
BuildOptions BuildOptionsFor(const CliRequest& request);

// The language of the messages: the option, else the stored choice.
Language LanguageFor(const CliRequest& request);

} // namespace zunbrix::cli
