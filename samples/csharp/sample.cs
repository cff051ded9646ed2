// Zenithor from C#: Mono here; in a project of .NET the file works as it stands.
//
// Run on Linux: mcs sample.cs && LD_LIBRARY_PATH=../../linux mono sample.exe
//
// Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
// Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
using System;
using System.Globalization;
using System.Runtime.InteropServices;
using System.Threading;

[StructLayout(LayoutKind.Sequential)]
struct BodyPositionRecord
{
    public double HelioLongitude, HelioLatitude, HelioDistance;
    public double GeoLongitude, GeoLatitude, GeoDistance;
    public double RightAscension, Declination, MoonPhaseAngle, MoonAxisPositionAngle;
    public double ReservedA1, ReservedA2, ReservedA3, ReservedA4;
    public double MoonIlluminatedFraction, Obliquity, Centuries;
    public int Year, Month, Day, Hour, Minute, Second;
}

[StructLayout(LayoutKind.Sequential)]
struct EventTimeBlock
{
    public double JulianDay;
    public int Year, Month, Day, Hour, Minute, Second;
}

[StructLayout(LayoutKind.Sequential)]
struct EventRecord
{
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 19)]
    public EventTimeBlock[] Blocks;
}

// The records: names with one leading underscore, C calling convention.
static class Zenithor
{
    [DllImport("zenithor", EntryPoint = "_ZENITHOR", CallingConvention = CallingConvention.Cdecl)]
    public static extern double Position(double julianDay, double ignored1, double ignored2,
        double observerLongitude, double observerLatitude, double ignored3, int body,
        ref BodyPositionRecord record);

    [DllImport("zenithor", EntryPoint = "_ALL_SE", CallingConvention = CallingConvention.Cdecl)]
    public static extern double AnySolarEclipse(double julianDay, double ignored1, double ignored2,
        out EventRecord record);

    [DllImport("zenithor", EntryPoint = "_GEO_RISE", CallingConvention = CallingConvention.Cdecl)]
    public static extern double Rising(double dayNumber, double minutes, double zoneHours,
        double observerLongitude, double observerLatitude, int body, int selector);
}

// The values: the system's calling convention, which is the default.
static class Values
{
    [DllImport("zenithor_values")]
    public static extern int ZenithorValues(int body, int field, double[] julianDays, int count,
        [Out] double[] values);

    [DllImport("zenithor_values")]
    public static extern int ZenithorCalendar(double julianDay, double roundTo, [Out] int[] date,
        IntPtr second);

    [DllImport("zenithor_values")]
    public static extern double ZenithorNextEventOfKinds(int kindSet, double after, out int kind);

    [DllImport("zenithor_values")]
    public static extern IntPtr ZenithorKindName(int kind);

    [DllImport("zenithor_values")]
    public static extern double ZenithorDailyTime(int body, int riseTransitOrSet, double julianDay,
        double zoneHours, double longitude, double latitude);
}

static class Sample
{
    const double Start = 2461041.5;  // Julian day of 2026 January 1, 0h
    const double Longitude = 13.4;   // Berlin [deg], positive east
    const double Latitude = 52.5;
    const double Zone = 1;           // [h] ahead of universal time
    const int Sun = 0, Mars = 4;
    const int Rise = 1;
    const int GeoLongitude = 4;
    const int SolarEclipses = 0x03F00;  // bits 8 to 13

    static void PrintRecords()
    {
        Console.WriteLine("Records");
        var mars = new BodyPositionRecord();
        for (int day = 0; day < 5; ++day)
        {
            if (Zenithor.Position(Start + day, 0, 0, 0, 0, 0, Mars, ref mars) != 323)
                throw new Exception("No data files: see \"Where the data are\" in the host guide.");
            Console.WriteLine("Mars {0}-{1:00}-{2:00} {3:F6}", mars.Year, mars.Month, mars.Day,
                mars.GeoLongitude);
        }

        EventRecord events;
        if (Zenithor.AnySolarEclipse(Start, 0, 0, out events) == 0)
            throw new Exception("No eclipse.");
        string[] kinds = { "total", "annular", "annular-total", "non-central total",
            "non-central annular", "partial" };
        int kind = Array.FindIndex(events.Blocks, 8, block => block.JulianDay != 0) - 8;
        EventTimeBlock eclipse = events.Blocks[14];
        Console.WriteLine("{0}-{1:00}-{2:00} {3:00}:{4:00} {5} solar eclipse", eclipse.Year,
            eclipse.Month, eclipse.Day, eclipse.Hour, eclipse.Minute, kinds[kind]);

        // Days are counted from 2437299.5; longitude and zone are positive west here.
        double sunrise = Zenithor.Rising(Start - 2437299.5, 0, -Zone, -Longitude, Latitude, Sun, Rise);
        if (!(sunrise > 0) || sunrise == 16 || sunrise == 32)  // 16: up all day, 32: down all day
            throw new Exception("No sunrise.");
        int minutes = (int)(sunrise + 0.5);
        Console.WriteLine("Berlin {0:00}:{1:00} sunrise", minutes / 60, minutes % 60);
    }

    static int[] Calendar(double julianDay, double roundTo)
    {
        var date = new int[5];
        if (Values.ZenithorCalendar(julianDay, roundTo, date, IntPtr.Zero) != 0)
            throw new Exception(julianDay + " has no calendar date.");
        return date;
    }

    static void PrintValues()
    {
        Console.WriteLine("Values");
        double[] days = { Start, Start + 1, Start + 2, Start + 3, Start + 4 };
        var places = new double[5];
        if (Values.ZenithorValues(Mars, GeoLongitude, days, 5, places) != 5)
            throw new Exception("Not all values are numbers.");
        int[] date;
        for (int k = 0; k < 5; ++k)
        {
            date = Calendar(days[k], 0);
            Console.WriteLine("Mars {0}-{1:00}-{2:00} {3:F6}", date[0], date[1], date[2], places[k]);
        }

        int kind;
        double eclipse = Values.ZenithorNextEventOfKinds(SolarEclipses, Start, out kind);
        if (double.IsNaN(eclipse))
            throw new Exception("No eclipse.");
        date = Calendar(eclipse, 0);
        Console.WriteLine("{0}-{1:00}-{2:00} {3:00}:{4:00} {5}", date[0], date[1], date[2], date[3],
            date[4], Marshal.PtrToStringAnsi(Values.ZenithorKindName(kind)));

        double sunrise = Values.ZenithorDailyTime(Sun, Rise, Start + 0.5, Zone, Longitude, Latitude);
        if (double.IsNaN(sunrise))
            throw new Exception("No sunrise.");
        date = Calendar(sunrise + Zone / 24, 60);
        Console.WriteLine("Berlin {0:00}:{1:00} sunrise", date[3], date[4]);
    }

    static int Main()
    {
        Thread.CurrentThread.CurrentCulture = CultureInfo.InvariantCulture;  // decimal points
        try
        {
            PrintRecords();
            PrintValues();
            return 0;
        }
        catch (Exception error)
        {
            Console.Error.WriteLine(error.Message);
            return 1;
        }
    }
}
