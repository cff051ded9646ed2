// Zenithor from Java through JNA.
//
// Run on Linux: LD_LIBRARY_PATH=../../linux java -cp /usr/share/java/jna.jar Sample.java
//
// Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
// Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
import com.sun.jna.Library;
import com.sun.jna.Native;
import com.sun.jna.Pointer;
import com.sun.jna.Structure;
import com.sun.jna.ptr.IntByReference;
import java.util.Locale;

public class Sample {
  @Structure.FieldOrder({"HelioLongitude", "HelioLatitude", "HelioDistance", "GeoLongitude",
      "GeoLatitude", "GeoDistance", "RightAscension", "Declination", "MoonPhaseAngle",
      "MoonAxisPositionAngle", "ReservedA", "MoonIlluminatedFraction", "Obliquity", "Centuries",
      "Year", "Month", "Day", "Hour", "Minute", "Second"})
  public static class BodyPositionRecord extends Structure {
    public double HelioLongitude, HelioLatitude, HelioDistance;
    public double GeoLongitude, GeoLatitude, GeoDistance;
    public double RightAscension, Declination, MoonPhaseAngle, MoonAxisPositionAngle;
    public double[] ReservedA = new double[4];
    public double MoonIlluminatedFraction, Obliquity, Centuries;
    public int Year, Month, Day, Hour, Minute, Second;
  }

  @Structure.FieldOrder({"JulianDay", "Year", "Month", "Day", "Hour", "Minute", "Second"})
  public static class EventTimeBlock extends Structure {
    public double JulianDay;
    public int Year, Month, Day, Hour, Minute, Second;
  }

  @Structure.FieldOrder({"Blocks"})
  public static class EventRecord extends Structure {
    public EventTimeBlock[] Blocks = new EventTimeBlock[19];
  }

  // The main library's names have one leading underscore.
  public interface Zenithor extends Library {
    double _ZENITHOR(double julianDay, double ignored1, double ignored2, double observerLongitude,
        double observerLatitude, double ignored3, int body, BodyPositionRecord record);
    double _ALL_SE(double julianDay, double ignored1, double ignored2, EventRecord record);
    double _GEO_RISE(double dayNumber, double minutes, double zoneHours, double observerLongitude,
        double observerLatitude, int body, int selector);
  }

  // In a 32-bit Java on Windows: extends com.sun.jna.win32.StdCallLibrary
  public interface Values extends Library {
    int ZenithorValues(int body, int field, double[] julianDays, int count, double[] values);
    int ZenithorCalendar(double julianDay, double roundTo, int[] date, Pointer second);
    double ZenithorNextEventOfKinds(int kindSet, double after, IntByReference kind);
    String ZenithorKindName(int kind);
    double ZenithorDailyTime(int body, int riseTransitOrSet, double julianDay, double zoneHours,
        double longitude, double latitude);
  }

  static final double START = 2461041.5;  // Julian day of 2026 January 1, 0h
  static final double LONGITUDE = 13.4;   // Berlin [deg], positive east
  static final double LATITUDE = 52.5;
  static final double ZONE = 1;           // [h] ahead of universal time
  static final int SUN = 0, MARS = 4;
  static final int RISE = 1;
  static final int GEO_LONGITUDE = 4;
  static final int SOLAR_ECLIPSES = 0x03F00;  // bits 8 to 13

  static void printf(String format, Object... arguments) {
    System.out.println(String.format(Locale.ROOT, format, arguments));
  }

  static void printRecords(Zenithor zenithor) {
    printf("Records");
    BodyPositionRecord mars = new BodyPositionRecord();
    for (int day = 0; day < 5; ++day) {
      if (zenithor._ZENITHOR(START + day, 0, 0, 0, 0, 0, MARS, mars) != 323) {
        throw new IllegalStateException(
            "No data files: see \"Where the data are\" in the host guide.");
      }
      printf("Mars %d-%02d-%02d %.6f", mars.Year, mars.Month, mars.Day, mars.GeoLongitude);
    }

    EventRecord events = new EventRecord();
    if (zenithor._ALL_SE(START, 0, 0, events) == 0) {
      throw new IllegalStateException("No eclipse.");
    }
    String[] kinds = {"total", "annular", "annular-total", "non-central total",
        "non-central annular", "partial"};
    for (int kind = 0; kind < kinds.length; ++kind) {
      EventTimeBlock eclipse = events.Blocks[8 + kind];
      if (eclipse.JulianDay != 0) {
        printf("%d-%02d-%02d %02d:%02d %s solar eclipse", eclipse.Year, eclipse.Month, eclipse.Day,
            eclipse.Hour, eclipse.Minute, kinds[kind]);
      }
    }

    // Days are counted from 2437299.5; longitude and zone are positive west here.
    double sunrise =
        zenithor._GEO_RISE(START - 2437299.5, 0, -ZONE, -LONGITUDE, LATITUDE, SUN, RISE);
    if (!(sunrise > 0) || sunrise == 16 || sunrise == 32) {  // 16: up all day, 32: down all day
      throw new IllegalStateException("No sunrise.");
    }
    int minutes = (int) (sunrise + 0.5);
    printf("Berlin %02d:%02d sunrise", minutes / 60, minutes % 60);
  }

  static int[] calendar(Values values, double julianDay, double roundTo) {
    int[] date = new int[5];
    if (values.ZenithorCalendar(julianDay, roundTo, date, null) != 0) {
      throw new IllegalStateException(julianDay + " has no calendar date.");
    }
    return date;
  }

  static void printValues(Values values) {
    printf("Values");
    double[] days = {START, START + 1, START + 2, START + 3, START + 4};
    double[] places = new double[5];
    if (values.ZenithorValues(MARS, GEO_LONGITUDE, days, 5, places) != 5) {
      throw new IllegalStateException("Not all values are numbers.");
    }
    for (int k = 0; k < 5; ++k) {
      int[] date = calendar(values, days[k], 0);
      printf("Mars %d-%02d-%02d %.6f", date[0], date[1], date[2], places[k]);
    }

    IntByReference kind = new IntByReference();
    double eclipse = values.ZenithorNextEventOfKinds(SOLAR_ECLIPSES, START, kind);
    if (Double.isNaN(eclipse)) {
      throw new IllegalStateException("No eclipse.");
    }
    int[] date = calendar(values, eclipse, 0);
    printf("%d-%02d-%02d %02d:%02d %s", date[0], date[1], date[2], date[3], date[4],
        values.ZenithorKindName(kind.getValue()));

    double sunrise =
        values.ZenithorDailyTime(SUN, RISE, START + 0.5, ZONE, LONGITUDE, LATITUDE);
    if (Double.isNaN(sunrise)) {
      throw new IllegalStateException("No sunrise.");
    }
    date = calendar(values, sunrise + ZONE / 24, 60);
    printf("Berlin %02d:%02d sunrise", date[3], date[4]);
  }

  public static void main(String[] arguments) {
    try {
      printRecords(Native.load("zenithor", Zenithor.class));
      printValues(Native.load("zenithor_values", Values.class));
    } catch (IllegalStateException | UnsatisfiedLinkError error) {
      System.err.println(error.getMessage());
      System.exit(1);
    }
  }
}
