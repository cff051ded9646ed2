#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "aspect_names.h"
#include "bodies.h"
#include "commands.h"
#include "common_options.h"
#include "failure.h"
#include "fields.h"
#include "options.h"
#include "searches.h"
#include "words.h"
#include "zenithor/values.h"
#include "zodiac.h"

namespace zenithor::almanac {

namespace {

struct AspectsOptions {
  SpanWords span;
  Bodies bodies;
  Bodies with;
  std::vector<double> angles;
  Longitude longitude;
  CommonOptions common;
};

struct Aspect {
  Body body;
  Body other;
  double angle;
  double day;
};

struct Pair {
  Body body;
  Body other;
};

// Every pair once.
std::vector<Pair> PairsOf(const Bodies& bodies, const Bodies& with) {
  std::vector<Pair> pairs;
  for (const Body& body : bodies) {
    for (const Body& other : with) {
      const bool known = std::any_of(pairs.begin(), pairs.end(), [&](const Pair& pair) {
        return pair.body.code == other.code && pair.other.code == body.code;
      });
      if (body.code != other.code && !known) {
        pairs.push_back({body, other});
      }
    }
  }
  return pairs;
}

std::vector<Aspect> AspectsOf(const std::vector<Pair>& pairs, const std::vector<double>& angles,
                              std::int32_t field, const Span& span) {
  return FindEach(
      "aspects", pairs.size() * angles.size(),
      [&](std::size_t k, const Advanced& advanced) {
        const Pair& pair = pairs[k / angles.size()];
        const double angle = angles[k % angles.size()];
        const auto search = [&](double from, double to, double* days, std::int32_t* codes,
                                std::int32_t capacity) {
          return ZenithorDirectedAspects(pair.body.code, pair.other.code, field, angle, from, to,
                                         days, codes, capacity);
        };
        std::vector<Aspect> aspects;
        for (const Found& found : FindAll(search, span, advanced)) {
          aspects.push_back({pair.body, pair.other, angle, found.day});
        }
        return aspects;
      },
      [](const Aspect& aspect) { return aspect.day; });
}

std::vector<double> AnglesOf(const std::vector<std::string>& words) {
  std::vector<double> angles;
  for (const std::string& word : words) {
    const auto named =
        std::find_if(AspectNames().begin(), AspectNames().end(),
                     [&](const AspectName& aspect) { return Plain(word) == aspect.name; });
    if (named != AspectNames().end()) {
      angles.push_back(named->angle);
      continue;
    }
    if (word.find_first_of("0123456789") == std::string::npos) {
      throw Failure("--angle \"{}\"{}", word, Guess(word, AspectWords()));
    }
    angles.push_back(NumberOf("--angle", word, 0.0, 180.0));
  }
  std::sort(angles.begin(), angles.end());
  angles.erase(std::unique(angles.begin(), angles.end()), angles.end());
  return angles;
}

void PrintAspects(const AspectsOptions& options) {
  const Clock clock = ClockOf(options.common.clock);
  const Span span = SearchedSpanOf(options.span, clock);
  const std::int32_t field = options.longitude.Field();
  const Bodies usual = options.longitude.UsualBodies();
  const Bodies bodies = options.bodies.empty() ? usual : options.bodies;
  // One body alone stands against all others.
  const Bodies with = !options.with.empty() ? options.with : bodies.size() == 1 ? usual : bodies;
  options.longitude.Check(bodies);
  options.longitude.Check(with);
  const std::vector<Aspect> aspects = AspectsOf(PairsOf(bodies, with), options.angles, field, span);
  const std::unique_ptr<Writer> writer = NewWriter(options.common.output, clock);
  writer->Head({fmt::format("Aspects {}", SpanText(span, clock)), options.longitude.Text()});
  writer->BeginTable("aspects", {MomentColumn("time"), JulianDayColumn(), TextColumn("body", 7),
                                 TextColumn("aspect", 13), TextColumn("other", 7),
                                 NumberColumn("angle", "deg", 0, 0, 3), TextColumn("zodiac", 13)});
  for (const Aspect& aspect : aspects) {
    writer->AddRow({Moment{aspect.day}, aspect.day, std::string(aspect.body.name),
                    AspectText(aspect.angle), std::string(aspect.other.name), aspect.angle,
                    SignText(ZenithorValue(aspect.body.code, field, aspect.day))});
  }
  writer->EndTable();
  std::vector<std::string> notes;
  if (aspects.empty()) {
    notes.emplace_back("No aspect in this span.");
  } else {
    notes.emplace_back("The zodiac is where the first body stands.");
  }
  writer->Finish(notes);
}

}  // namespace

void AddAspectsCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("aspects", "When two bodies stand at an angle to one another");
  const auto options = std::make_shared<AspectsOptions>();
  for (const AspectName& aspect : AspectNames()) {
    options->angles.push_back(aspect.angle);
  }
  AddSpanOptions(*command, options->span, "this year");
  AddBodyOption(*command, "--body", options->bodies, AllBodies(), "",
                "Aspects among these, or of one to all others; else all but the Moon");
  AddBodyOption(*command, "--with", options->with, AllBodies(), "",
                "Only aspects of those to these");
  command
      ->add_option_function<std::vector<std::string>>(
          "--angle",
          [options](const std::vector<std::string>& words) { options->angles = AnglesOf(words); },
          "Degrees from 0 to 180, or names; else conjunction 0, semi-sextile 30, semi-square 45, "
          "sextile 60, square 90, trine 120, sesqui-square 135, quincunx 150, opposition 180")
      ->delimiter(',')
      ->type_name("ANGLE");
  AddLongitudeOptions(*command, options->longitude, true);
  AddCommonOptions(*command, options->common);
  SetExamples(*command,
              {"almanac aspects --body jupiter,saturn --from 2000 --to 2100 --angle conjunction",
               "almanac aspects --body moon --from today --to +7d --zone local",
               "almanac aspects --helio --year 2026 --angle 0,180 --format csv"});
  command->callback([&session, options] {
    session.WithoutLibrary("aspects");
    PrintAspects(*options);
  });
}

}  // namespace zenithor::almanac
