#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>

#include "bodies.h"
#include "commands.h"
#include "common_options.h"
#include "console.h"
#include "failure.h"
#include "fields.h"
#include "moment.h"
#include "options.h"
#include "progress.h"
#include "span.h"
#include "words.h"
#include "zenithor/values.h"
#include "zodiac.h"

namespace zenithor::almanac {

namespace {

struct PositionsOptions {
  std::string date;
  SpanWords span;
  std::string step;
  Bodies bodies;
  std::vector<std::size_t> fields;  // places in FieldWords
  Longitude longitude;
  CommonOptions common;
};

std::vector<std::string> FieldSlugs() {
  std::vector<std::string> slugs;
  for (const FieldWord& word : FieldWords()) {
    slugs.emplace_back(word.slug);
  }
  return slugs;
}

using Fields = std::vector<FieldWord>;

Fields FieldsOf(const PositionsOptions& options) {
  Fields fields;
  for (const std::size_t place : options.fields) {
    fields.push_back(FieldWords()[place]);
  }
  if (fields.empty()) {
    const Longitude& longitude = options.longitude;
    const std::vector<const char*> usual =
        longitude.heliocentric ? std::vector<const char*>{"helio-longitude", "zodiac",
                                                          "helio-latitude", "helio-distance"}
        : longitude.geometric
            ? std::vector<const char*>{"geometric-longitude", "zodiac", "geometric-latitude",
                                       "declination", "distance"}
            : std::vector<const char*>{"longitude", "zodiac", "latitude", "declination",
                                       "distance"};
    for (const char* const slug : usual) {
      fields.push_back(FieldOf(slug));
    }
  }
  return fields;
}

Bodies BodiesOf(const PositionsOptions& options) {
  if (!options.bodies.empty()) {
    return options.bodies;
  }
  return options.longitude.heliocentric ? BodiesWithout({ZENITHOR_BODY_SUN, ZENITHOR_BODY_MOON})
                                        : BodiesWithout({ZENITHOR_BODY_EARTH});
}

// The moments of a table, computed as they are asked for.
struct Moments {
  Clock clock;
  Span span;
  Step step;
  bool single;

  // The next up to `count` moments from the `first` on; none behind the end.
  std::vector<double> Next(double first, std::size_t count) const {
    std::vector<double> days;
    while (days.size() < count) {
      const double k = first + static_cast<double>(days.size());
      const double day = single ? span.from : Stepped(clock, span.from, step, k);
      if ((single && k > 0.0) || (!single && !(day < span.to))) {
        break;
      }
      days.push_back(day);
    }
    return days;
  }
};

Moments MomentsOf(const PositionsOptions& options, const Clock& clock) {
  const SpanWords& words = options.span;
  const bool span_given = !words.from.empty() || !words.to.empty() || !words.year.empty();
  if (!options.date.empty() && (span_given || !options.step.empty())) {
    throw Failure("--date is one moment; leave it out, or --from, --to, --year and --step");
  }
  if (!span_given && !options.step.empty()) {
    throw Failure("--step {}: a step needs a span; write --from and --to, or --year", options.step);
  }
  Moments moments{clock, {}, {}, !span_given};
  if (span_given) {
    moments.span = SpanOf(words, clock);
    moments.step = options.step.empty() ? Step{} : StepOf("--step", options.step);
  } else {
    const double day = options.date.empty() ? Now() : MomentOf("--date", options.date, clock);
    moments.span = {day, day};
  }
  return moments;
}

std::vector<std::string> HeadOf(const PositionsOptions& options, const Moments& moments,
                                const Clock& clock) {
  const std::string first = moments.single
                                ? PlacesHead(clock, moments.span.from)
                                : fmt::format("Places {}", SpanText(moments.span, clock));
  if (!options.fields.empty()) {
    return {first};
  }
  return {first, options.longitude.heliocentric ? "Heliocentric: ecliptic and equinox of date."
                 : options.longitude.geometric
                     ? "Geometric geocentric places, fields 4 to 6 of the record."
                     : "Apparent geocentric places, true equinox of date."};
}

class PositionsTable {
 public:
  // The sign is that of the field `longitude`.
  PositionsTable(const Bodies& bodies, const Fields& fields, std::int32_t longitude)
      : fields_(fields) {
    for (const Body& body : bodies) {
      bodies_.push_back(body.code);
      names_.emplace_back(body.name);
    }
    for (const FieldWord& word : fields) {
      codes_.push_back(word.field == kZodiac ? longitude : word.field);
    }
  }

  std::vector<Column> Columns(bool single) const {
    std::vector<Column> columns = {MomentColumn("time"), JulianDayColumn(), TextColumn("body", 7)};
    if (single) {
      columns[0] = NotInText(columns[0]);
    }
    for (const FieldWord& word : fields_) {
      columns.push_back(ColumnOf(word));
    }
    return columns;
  }

  void Write(const std::vector<double>& days, Writer& writer) {
    const std::size_t cells = bodies_.size() * codes_.size();
    values_.resize(days.size() * cells);
    static_cast<void>(ZenithorTable(bodies_.data(), static_cast<std::int32_t>(bodies_.size()),
                                    codes_.data(), static_cast<std::int32_t>(codes_.size()),
                                    days.data(), static_cast<std::int32_t>(days.size()),
                                    values_.data(), 0, 0, 0));
    std::size_t at = 0;
    for (const double day : days) {
      for (std::size_t body = 0; body < bodies_.size(); ++body) {
        row_.assign({Moment{day}, day, names_[body]});
        for (const FieldWord& word : fields_) {
          const double value = values_[at++];
          if (word.field != kZodiac) {
            row_.push_back(CellOf(word, bodies_[body], value));
          } else {
            row_.push_back(std::isnan(value) ? Cell() : SignText(value));
          }
        }
        writer.AddRow(row_);
      }
    }
  }

 private:
  std::vector<std::int32_t> bodies_;
  std::vector<std::string> names_;
  Fields fields_;
  std::vector<std::int32_t> codes_;
  std::vector<double> values_;
  Row row_;
};

void PrintPositions(const PositionsOptions& options) {
  constexpr std::size_t kDaysAtOnce = 64;
  const Clock clock = ClockOf(options.common.clock);
  const Moments moments = MomentsOf(options, clock);
  PositionsTable table(BodiesOf(options), FieldsOf(options), options.longitude.Field());
  const std::unique_ptr<Writer> writer = NewWriter(options.common.output, clock);
  Progress progress("positions");
  writer->Head(HeadOf(options, moments, clock));
  writer->BeginTable("positions", table.Columns(moments.single));
  double done = 0.0;
  while (true) {
    const std::vector<double> days = moments.Next(done, kDaysAtOnce);
    if (days.empty()) {
      break;
    }
    table.Write(days, *writer);
    done += static_cast<double>(days.size());
    if (!OutIsTerminal()) {
      progress.Show((days.back() - moments.span.from) / (moments.span.to - moments.span.from));
    }
  }
  progress.Clear();
  writer->EndTable();
  writer->Finish({});
}

}  // namespace

void AddPositionsCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("positions", "Where bodies stand, at a moment or over a span");
  const auto options = std::make_shared<PositionsOptions>();
  command->add_option("--date", options->date, "One moment; else now")
      ->type_name("DATE")
      ->group("Time");
  AddSpanOptions(*command, options->span, "one moment");
  command
      ->add_option("--step", options->step, "From row to row: 15min, 6h, 1d, 1w, 1mo, 1y; else 1d")
      ->type_name("STEP")
      ->group("Time");
  AddBodyOption(*command, "--body", options->bodies, AllBodies(), "",
                "Only these, or all eleven; with commas or blanks between");
  std::string meanings = "What to show, else longitude, zodiac, latitude, declination, distance:";
  for (const FieldWord& word : FieldWords()) {
    meanings += fmt::format(" {}", word.slug);
    meanings += &word == &FieldWords().back() ? "" : ",";
  }
  AddChoicesOption(*command, "--field", options->fields, FieldSlugs(), "FIELD", meanings);
  AddLongitudeOptions(*command, options->longitude, true);
  AddCommonOptions(*command, options->common);
  SetExamples(*command,
              {"almanac positions --date 2026-11-21T06:30 --body sun,moon",
               "almanac positions --year 2026 --step 1h --body all --format csv >2026.csv",
               "almanac positions --from 2026 --to +10y --step 1mo --body saturn --field "
               "longitude,motion"});
  command->callback([&session, options] {
    session.WithoutLibrary("positions");
    PrintPositions(*options);
  });
}

}  // namespace zenithor::almanac
