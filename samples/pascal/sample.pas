// Zenithor from Pascal: Free Pascal here; Delphi takes the same declarations.
//
// Run on Linux: fpc -l- -v0 -Fl../../linux sample.pas && LD_LIBRARY_PATH=../../linux ./sample
//
// Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
// Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
program sample;

{$ifdef fpc}{$mode delphi}{$endif}

uses
  SysUtils, Math;

type
  TBodyPositionRecord = record
    HelioLongitude, HelioLatitude, HelioDistance: Double;
    GeoLongitude, GeoLatitude, GeoDistance: Double;
    RightAscension, Declination, MoonPhaseAngle, MoonAxisPositionAngle: Double;
    ReservedA: array[1..4] of Double;
    MoonIlluminatedFraction, Obliquity, Centuries: Double;
    Year, Month, Day, Hour, Minute, Second: Integer;
  end;

  TEventTimeBlock = record
    JulianDay: Double;
    Year, Month, Day, Hour, Minute, Second: Integer;
  end;

  TEventRecord = record
    Blocks: array[0..18] of TEventTimeBlock;
  end;

  TDate = array[0..4] of Integer;

// The records: names with one leading underscore, C calling convention.
function ZENITHOR_(JulianDay, Ignored1, Ignored2, ObserverLongitude, ObserverLatitude,
  Ignored3: Double; Body: Integer; var Rec: TBodyPositionRecord): Double; cdecl;
  external 'zenithor' name '_ZENITHOR';
function ALL_SE(JulianDay, Ignored1, Ignored2: Double; var Rec: TEventRecord): Double; cdecl;
  external 'zenithor' name '_ALL_SE';
function GEO_RISE(DayNumber, Minutes, ZoneHours, ObserverLongitude, ObserverLatitude: Double;
  Body, Selector: Integer): Double; cdecl; external 'zenithor' name '_GEO_RISE';

// The values: stdcall in a 32-bit Windows process, C calling convention elsewhere.
function ZenithorValues(Body, Field: Integer; JulianDays: PDouble; Count: Integer;
  Values: PDouble): Integer; {$ifdef win32}stdcall{$else}cdecl{$endif}; external 'zenithor_values';
function ZenithorCalendar(JulianDay, RoundTo: Double; var Date: TDate; Second: PDouble): Integer;
  {$ifdef win32}stdcall{$else}cdecl{$endif}; external 'zenithor_values';
function ZenithorNextEventOfKinds(KindSet: Integer; After: Double; var Kind: Integer): Double;
  {$ifdef win32}stdcall{$else}cdecl{$endif}; external 'zenithor_values';
function ZenithorKindName(Kind: Integer): PAnsiChar;
  {$ifdef win32}stdcall{$else}cdecl{$endif}; external 'zenithor_values';
function ZenithorDailyTime(Body, RiseTransitOrSet: Integer; JulianDay, ZoneHours, Longitude,
  Latitude: Double): Double; {$ifdef win32}stdcall{$else}cdecl{$endif}; external 'zenithor_values';

const
  Start = 2461041.5;  // Julian day of 2026 January 1, 0h
  Longitude = 13.4;   // Berlin [deg], positive east
  Latitude = 52.5;
  Zone = 1;           // [h] ahead of universal time
  Sun = 0;
  Mars = 4;
  Rise = 1;
  GeoLongitude = 4;
  SolarEclipses = $03F00;  // bits 8 to 13

procedure PrintRecords;
const
  Kinds: array[8..13] of string = ('total', 'annular', 'annular-total', 'non-central total',
    'non-central annular', 'partial');
var
  Place: TBodyPositionRecord;
  Events: TEventRecord;
  Day, Block, Minutes: Integer;
  Sunrise: Double;
begin
  WriteLn('Records');
  for Day := 0 to 4 do
  begin
    if ZENITHOR_(Start + Day, 0, 0, 0, 0, 0, Mars, Place) <> 323 then
      raise Exception.Create('No data files: see "Where the data are" in the host guide.');
    WriteLn(Format('Mars %d-%.2d-%.2d %.6f', [Place.Year, Place.Month, Place.Day,
      Place.GeoLongitude]));
  end;

  if ALL_SE(Start, 0, 0, Events) = 0 then
    raise Exception.Create('No eclipse.');
  for Block := 8 to 13 do
    with Events.Blocks[Block] do
      if JulianDay <> 0 then
        WriteLn(Format('%d-%.2d-%.2d %.2d:%.2d %s solar eclipse', [Year, Month, Day, Hour, Minute,
          Kinds[Block]]));

  // Days are counted from 2437299.5; longitude and zone are positive west here.
  Sunrise := GEO_RISE(Start - 2437299.5, 0, -Zone, -Longitude, Latitude, Sun, Rise);
  // 16: up all day, 32: down all day
  if IsNan(Sunrise) or (Sunrise <= 0) or (Sunrise = 16) or (Sunrise = 32) then
    raise Exception.Create('No sunrise.');
  Minutes := Trunc(Sunrise + 0.5);
  WriteLn(Format('Berlin %.2d:%.2d sunrise', [Minutes div 60, Minutes mod 60]));
end;

function Calendar(JulianDay, RoundTo: Double): TDate;
begin
  if ZenithorCalendar(JulianDay, RoundTo, Result, nil) <> 0 then
    raise Exception.Create('That day has no calendar date.');
end;

procedure PrintValues;
var
  Days, Places: array[0..4] of Double;
  Date: TDate;
  K, Kind: Integer;
  Eclipse, Sunrise: Double;
begin
  WriteLn('Values');
  for K := 0 to 4 do
    Days[K] := Start + K;
  if ZenithorValues(Mars, GeoLongitude, @Days[0], 5, @Places[0]) <> 5 then
    raise Exception.Create('Not all values are numbers.');
  for K := 0 to 4 do
  begin
    Date := Calendar(Days[K], 0);
    WriteLn(Format('Mars %d-%.2d-%.2d %.6f', [Date[0], Date[1], Date[2], Places[K]]));
  end;

  Kind := 0;
  Eclipse := ZenithorNextEventOfKinds(SolarEclipses, Start, Kind);
  if IsNan(Eclipse) then
    raise Exception.Create('No eclipse.');
  Date := Calendar(Eclipse, 0);
  WriteLn(Format('%d-%.2d-%.2d %.2d:%.2d %s', [Date[0], Date[1], Date[2], Date[3], Date[4],
    string(ZenithorKindName(Kind))]));

  Sunrise := ZenithorDailyTime(Sun, Rise, Start + 0.5, Zone, Longitude, Latitude);
  if IsNan(Sunrise) then
    raise Exception.Create('No sunrise.');
  Date := Calendar(Sunrise + Zone / 24, 60);
  WriteLn(Format('Berlin %.2d:%.2d sunrise', [Date[3], Date[4]]));
end;

begin
  try
    PrintRecords;
    PrintValues;
  except
    on Error: Exception do
    begin
      WriteLn(StdErr, Error.Message);
      Halt(1);
    end;
  end;
end.
