#include "definitions.h"

namespace zenithor::almanac {

namespace {

// Text for the formatter: hyphens stay hyphens, and nothing begins a request.
std::string Roff(const std::string& text) {
  std::string roff;
  for (const char c : text) {
    if (c == '\\') {
      roff += "\\e";
    } else if (c == '-') {
      roff += "\\-";
    } else if (c == '"') {
      roff += "\\(dq";
    } else if (c == '\'') {
      roff += "\\(aq";
    } else {
      roff += c;
    }
  }
  return (roff.rfind('.', 0) == 0 ? "\\&" : "") + roff;
}

std::string Options(const CommandDefinition& command) {
  std::string text;
  for (const OptionDefinition& option : command.options) {
    if (option.name == "--help") {
      continue;
    }
    text += ".TP\n";
    text += option.positional ? "\\fI" + Roff(option.name) + "\\fR"
                              : "\\fB" + Roff(option.name) + "\\fR";
    if (!option.positional && !option.value.empty()) {
      text += " \\fI" + Roff(option.value) + "\\fR" + (option.many ? ",..." : "");
    }
    text += "\n" + Roff(option.description) + ".\n";
  }
  return text;
}

}  // namespace

std::string ManualPage(const ProgramDefinition& program, const std::string& version) {
  std::string text = ".TH ALMANAC 1 \"\" \"" + Roff(version) + "\" \"Zenithor\"\n";
  text += ".SH NAME\nalmanac \\- places and events of the Sun, the Moon and the planets\n";
  text += ".SH SYNOPSIS\n.B almanac\n[\\fICOMMAND\\fR] [\\fIOPTION\\fR]...\n";
  text += ".SH DESCRIPTION\n" + Roff(program.program.description) + "\n" + Options(program.program);
  text += ".SH COMMANDS\n";
  for (const CommandDefinition& command : program.commands) {
    text += ".SS almanac " + Roff(command.name) + "\n" + Roff(command.description) + ".\n" +
            Options(command);
    if (!command.examples.empty()) {
      text += ".PP\nExamples:\n.RS\n.nf\n";
      for (const std::string& example : command.examples) {
        text += Roff(example) + "\n";
      }
      text += ".fi\n.RE\n";
    }
  }
  text +=
      ".SH DATES\n"
      "2026\\-11\\-21, 2026\\-11\\-21T06:30:15, 2026\\-11, 2026, with Z or +02:00 behind them "
      "where a\n"
      "time stands; now, today, tomorrow, yesterday; jd2461365.75, a Julian day of dynamical "
      "time.\n"
      "Years before 1 have a sign or are 0, which is 1 BC. Without a zone behind it a date is "
      "that\n"
      "of \\fB\\-\\-zone\\fR or \\fB\\-\\-time\\fR, else UTC.\n";
  text +=
      ".SH EXIT STATUS\n"
      ".TP\n0\nDone. Also where the reader of the output has gone.\n"
      ".TP\n1\nThe doctor found something, a check failed, a library, a file or the output did\n"
      "not do, or bodies were not available.\n"
      ".TP\n2\nThe command line was refused; standard error says what to write instead.\n";
  text +=
      ".SH ENVIRONMENT\n"
      ".TP\nNO_COLOR\nWhere it is set, no colours.\n"
      ".TP\nTZDIR\nA folder of zone files to look in first.\n"
      ".TP\nXDG_DATA_HOME, XDG_DATA_DIRS, XDG_CONFIG_HOME\nWhere the main library\\(aqs data files "
      "and the file "
      "of places are.\n";
  return text;
}

}  // namespace zenithor::almanac
