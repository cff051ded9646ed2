// karvo: compiles, inspects and verifies the two ephemeris files.

#include <fmt/core.h>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "failure.h"
#include "run_program.h"

namespace {

int Run(int argument_count, char** arguments) {
  namespace karvo = zenithor::karvo;
  CLI::App app("Compiles, inspects and verifies the ephemeris files karvo.ndx and karvo.dat.",
               "karvo");
  app.require_subcommand(1);

  karvo::BuildOptions build_options;
  double max_error_arcsec = 0.0;
  CLI::App* const build = app.add_subcommand(
      "build", "Compiles the coefficients into OUT/archive/karvo.ndx, karvo.dat and manifest.json");
  build->add_option("--source", build_options.source, "Folder of the coefficients")
      ->capture_default_str();
  build->add_option("--out", build_options.out, "Folder to write to")->capture_default_str();
  CLI::Option* const max_error =
      build
          ->add_option(
              "--max-error", max_error_arcsec,
              "Keep few terms, the smallest given up first, that hold each heliocentric place "
              "within ARCSEC over the years -2000 to +6000")
          ->type_name("ARCSEC");

  std::string file;
  CLI::App* const info = app.add_subcommand("info", "Says what an index or data file holds");
  info->add_option("FILE", file, "karvo.ndx or karvo.dat")->required();

  std::string folder = "out/data";
  CLI::App* const verify = app.add_subcommand(
      "verify",
      "Checks structure, counts, ranges, finiteness and SHA-256 of the files in a folder");
  verify->add_option("DIR", folder, "Folder of the files, or the one above archive/")->required();

  int slot = 0;
  CLI::App* const dump = app.add_subcommand("dump",
                                            "Prints the terms of one slot as they are in "
                                            "the coefficient files");
  dump->add_option("--slot", slot, "0 the Earth of J2000.0, 1 to 8 Mercury to Neptune of date")
      ->required();
  dump->add_option("DIR", folder, "Folder of the files, or the one above archive/")
      ->capture_default_str();

  try {
    app.parse(argument_count, arguments);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
      return app.exit(error);  // the help was asked for
    }
    throw zenithor::Failure("{}; karvo --help says more", error.what());
  }
  if (*build) {
    if (*max_error) {
      if (!(max_error_arcsec > 0.0)) {
        throw zenithor::Failure("--max-error {}: a budget is a number of arcseconds above 0",
                                max_error_arcsec);
      }
      build_options.max_error_arcsec = max_error_arcsec;
    }
    return karvo::Build(build_options);
  }
  if (*info) {
    return karvo::Info(file);
  }
  return *verify ? karvo::Verify(folder) : karvo::Dump(folder, slot);
}

}  // namespace

int main(int argument_count, char** arguments) {
  return zenithor::RunProgram(
      "karvo", [argument_count, arguments] { return Run(argument_count, arguments); });
}
