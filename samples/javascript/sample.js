// Zenithor from JavaScript: Node with koffi (once: npm install koffi).
//
// Run on Linux: LD_LIBRARY_PATH=../../linux node sample.js
//
// Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
// Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
'use strict';
const koffi = require('koffi');

const windows = process.platform === 'win32';
const zenithor = koffi.load(windows ? 'zenithor.dll' : 'libzenithor.so');
const values = koffi.load(windows ? 'zenithor_values.dll' : 'libzenithor_values.so');

koffi.struct('BodyPositionRecord', {
  HelioLongitude: 'double', HelioLatitude: 'double', HelioDistance: 'double',
  GeoLongitude: 'double', GeoLatitude: 'double', GeoDistance: 'double',
  RightAscension: 'double', Declination: 'double', MoonPhaseAngle: 'double',
  MoonAxisPositionAngle: 'double', ReservedA: koffi.array('double', 4),
  MoonIlluminatedFraction: 'double', Obliquity: 'double', Centuries: 'double',
  Year: 'int32_t', Month: 'int32_t', Day: 'int32_t',
  Hour: 'int32_t', Minute: 'int32_t', Second: 'int32_t',
});
koffi.struct('EventTimeBlock', {
  JulianDay: 'double',
  Year: 'int32_t', Month: 'int32_t', Day: 'int32_t',
  Hour: 'int32_t', Minute: 'int32_t', Second: 'int32_t',
});
koffi.struct('EventRecord', {Blocks: koffi.array('EventTimeBlock', 19)});

// The main library's names have one leading underscore.
const position = zenithor.func('double _ZENITHOR(double, double, double, double, double, double, ' +
  'int32_t, _Inout_ BodyPositionRecord*)');
const anySolarEclipse = zenithor.func('double _ALL_SE(double, double, double, _Out_ EventRecord*)');
const rising = zenithor.func('double _GEO_RISE(double, double, double, double, double, ' +
  'int32_t, int32_t)');
// stdcall in a 32-bit Windows process; nothing special elsewhere
const valuesOfDays = values.func('int32_t __stdcall ZenithorValues(int32_t, int32_t, ' +
  'const double*, int32_t, _Out_ double*)');
const calendar = values.func('int32_t __stdcall ZenithorCalendar(double, double, ' +
  '_Out_ int32_t*, _Out_ double*)');
const nextEventOfKinds = values.func('double __stdcall ZenithorNextEventOfKinds(int32_t, double, ' +
  '_Out_ int32_t*)');
const kindName = values.func('const char* __stdcall ZenithorKindName(int32_t)');
const dailyTime = values.func('double __stdcall ZenithorDailyTime(int32_t, int32_t, ' +
  'double, double, double, double)');

const start = 2461041.5;  // Julian day of 2026 January 1, 0h
const [longitude, latitude, zone] = [13.4, 52.5, 1];  // Berlin: [deg] positive east, [deg], [h]
const [SUN, MARS] = [0, 4];
const RISE = 1;
const GEO_LONGITUDE = 4;
const SOLAR_ECLIPSES = 0x03F00;  // bits 8 to 13

const two = number => String(number).padStart(2, '0');

function printRecords() {
  console.log('Records');
  const mars = {};
  for (let day = 0; day < 5; ++day) {
    if (position(start + day, 0, 0, 0, 0, 0, MARS, mars) !== 323) {
      throw new Error('No data files: see "Where the data are" in the host guide.');
    }
    console.log(`Mars ${mars.Year}-${two(mars.Month)}-${two(mars.Day)} ` +
      mars.GeoLongitude.toFixed(6));
  }

  const events = {};
  if (anySolarEclipse(start, 0, 0, events) === 0) {
    throw new Error('No eclipse.');
  }
  const kinds = ['total', 'annular', 'annular-total', 'non-central total', 'non-central annular',
    'partial'];
  const kind = kinds[events.Blocks.slice(8, 14).findIndex(block => block.JulianDay !== 0)];
  const eclipse = events.Blocks[14];
  console.log(`${eclipse.Year}-${two(eclipse.Month)}-${two(eclipse.Day)} ` +
    `${two(eclipse.Hour)}:${two(eclipse.Minute)} ${kind} solar eclipse`);

  // Days are counted from 2437299.5; longitude and zone are positive west here.
  const sunrise = rising(start - 2437299.5, 0, -zone, -longitude, latitude, SUN, RISE);
  if (!(sunrise > 0) || sunrise === 16 || sunrise === 32) {  // 16: up all day, 32: down all day
    throw new Error('No sunrise.');
  }
  const minutes = Math.round(sunrise);
  console.log(`Berlin ${two(Math.floor(minutes / 60))}:${two(minutes % 60)} sunrise`);
}

function dateOf(julianDay, roundTo) {
  const date = new Int32Array(5);
  if (calendar(julianDay, roundTo, date, null) !== 0) {
    throw new Error(`${julianDay} has no calendar date.`);
  }
  return [date[0], ...Array.from(date.slice(1), two)];
}

function printValues() {
  console.log('Values');
  const days = Float64Array.from([0, 1, 2, 3, 4], day => start + day);
  const places = new Float64Array(5);
  if (valuesOfDays(MARS, GEO_LONGITUDE, days, 5, places) !== 5) {
    throw new Error('Not all values are numbers.');
  }
  days.forEach((day, k) => {
    console.log(`Mars ${dateOf(day, 0).slice(0, 3).join('-')} ${places[k].toFixed(6)}`);
  });

  const kind = [0];
  const eclipse = nextEventOfKinds(SOLAR_ECLIPSES, start, kind);
  if (Number.isNaN(eclipse)) {
    throw new Error('No eclipse.');
  }
  const [year, month, day, hour, minute] = dateOf(eclipse, 0);
  console.log(`${year}-${month}-${day} ${hour}:${minute} ${kindName(kind[0])}`);

  const sunrise = dailyTime(SUN, RISE, start + 0.5, zone, longitude, latitude);
  if (Number.isNaN(sunrise)) {
    throw new Error('No sunrise.');
  }
  console.log(`Berlin ${dateOf(sunrise + zone / 24, 60).slice(3).join(':')} sunrise`);
}

try {
  printRecords();
  printValues();
} catch (error) {
  console.error(error.message);
  process.exitCode = 1;
}
