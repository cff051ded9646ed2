#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>

#include "bodies.h"
#include "commands.h"
#include "common_options.h"
#include "fields.h"
#include "options.h"
#include "searches.h"
#include "zenithor/values.h"
#include "zodiac.h"

namespace zenithor::almanac {

namespace {

constexpr double kDegreesPerSign = 30.0;

struct IngressesOptions {
  SpanWords span;
  Bodies bodies;
  double every = kDegreesPerSign;
  Longitude longitude;
  CommonOptions common;
};

struct Ingress {
  Body body;
  double day;
  double target;
  std::int32_t direction;
};

std::vector<Ingress> IngressesOf(const IngressesOptions& options, const Bodies& bodies,
                                 const Span& span) {
  // Targets are multiples, so that 7.2 brings no sum of roundings.
  const auto targets = static_cast<std::size_t>(std::ceil(360.0 / options.every - 1e-9));
  return FindEach(
      "ingresses", bodies.size() * targets,
      [&](std::size_t k, const Advanced& advanced) {
        const Body& body = bodies[k / targets];
        const double target = static_cast<double>(k % targets) * options.every;
        const auto search = [&](double from, double to, double* days, std::int32_t* codes,
                                std::int32_t capacity) {
          return ZenithorDirectedCrossings(body.code, options.longitude.Field(), target, from, to,
                                           days, codes, capacity);
        };
        std::vector<Ingress> ingresses;
        for (const Found& found : FindAll(search, span, advanced)) {
          ingresses.push_back({body, found.day, target, found.code});
        }
        return ingresses;
      },
      [](const Ingress& ingress) { return ingress.day; });
}

// A planet that runs back enters the sign below.
std::string SignEntered(const Ingress& ingress) {
  const int sign = static_cast<int>(std::lround(ingress.target / kDegreesPerSign));
  return SignName(ingress.direction < 0 ? sign - 1 : sign);
}

void PrintIngresses(const IngressesOptions& options) {
  const Clock clock = ClockOf(options.common.clock);
  const Span span = SearchedSpanOf(options.span, clock);
  const Bodies bodies = options.bodies.empty() ? options.longitude.UsualBodies() : options.bodies;
  const bool whole_signs = std::fmod(options.every, kDegreesPerSign) == 0.0;
  std::vector<Column> columns = {MomentColumn("time"), JulianDayColumn(), TextColumn("body")};
  if (whole_signs) {
    columns.push_back(TextColumn("enters"));
  }
  columns.push_back(NumberColumn("longitude", "deg", whole_signs ? 0 : 4, whole_signs ? 0 : 4, 3));
  columns.push_back(TextColumn("motion"));
  const std::vector<Ingress> ingresses = IngressesOf(options, bodies, span);
  const std::unique_ptr<Writer> writer = NewWriter(options.common.output, clock);
  writer->Head(
      {fmt::format("Ingresses, every {:g} degrees, {}", options.every, SpanText(span, clock)),
       options.longitude.Text()});
  writer->BeginTable("ingresses", columns);
  for (const Ingress& ingress : ingresses) {
    Row row = {Moment{ingress.day}, ingress.day, std::string(ingress.body.name)};
    if (whole_signs) {
      row.emplace_back(SignEntered(ingress));
    }
    row.emplace_back(ingress.target);
    row.emplace_back(std::string(ingress.direction < 0   ? "retrograde"
                                 : ingress.direction > 0 ? "direct"
                                                         : "touches"));
    writer->AddRow(row);
  }
  writer->EndTable();
  writer->Finish(NoteIf(ingresses.empty(), "No ingress in this span."));
}

}  // namespace

void AddIngressesCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("ingresses", "When bodies enter signs, or pass any degrees");
  const auto options = std::make_shared<IngressesOptions>();
  AddSpanOptions(*command, options->span, "this year");
  AddBodyOption(*command, "--body", options->bodies, AllBodies(), "",
                "Only these; else all but the Moon");
  AddNumberOption(*command, "--every", options->every, 0.1, 360.0, "DEGREES",
                  "Which degrees: 30 the tropical signs, 45, 7.5, ...; else 30");
  AddLongitudeOptions(*command, options->longitude, true);
  AddCommonOptions(*command, options->common);
  SetExamples(*command,
              {"almanac ingresses --year 2027",
               "almanac ingresses --body moon --from today --to +30d --zone local",
               "almanac ingresses --body mars,jupiter --every 45 --year 2026 --format csv"});
  command->callback([&session, options] {
    session.WithoutLibrary("ingresses");
    options->longitude.Check(options->bodies);
    PrintIngresses(*options);
  });
}

}  // namespace zenithor::almanac
