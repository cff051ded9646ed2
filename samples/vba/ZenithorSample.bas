Attribute VB_Name = "ZenithorSample"
' Zenithor from VBA, in the 32-bit and the 64-bit Office.
'
' Run: in the editor (Alt+F11) File, Import File, this file; then type PrintSample in the immediate
' window (Ctrl+G). The DLLs of Office's width stand in a folder of PATH; or write their full paths
' after Lib.
'
' Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
' Berlin; in the 64-bit Office first from the records of zenithor, and always from the plain values of
' zenithor_values. The 32-bit Office calls by stdcall only, as zenithor_values has it; zenithor has the
' C calling convention.
Option Explicit

Private Const ZENITHOR_BODY_SUN As Long = 0
Private Const ZENITHOR_BODY_MARS As Long = 4
Private Const ZENITHOR_FIELD_GEO_LONGITUDE As Long = 4
Private Const ZENITHOR_KINDS_SOLAR_ECLIPSES As Long = &H3F00&
Private Const ZENITHOR_BLOCK_SOLAR_TOTAL As Long = 8
Private Const ZENITHOR_BLOCK_SOLAR_PARTIAL As Long = 13
Private Const ZENITHOR_BLOCK_SOLAR_ANY As Long = 14
Private Const ZENITHOR_DAILY_RISE As Long = 1
Private Const ZENITHOR_DAILY_HAPPENS As Long = 0
Private Const ZENITHOR_RISE As Long = 1
Private Const ZENITHOR_DONE As Double = 323
Private Const ZENITHOR_ALWAYS_UP As Double = 16
Private Const ZENITHOR_NEVER_UP As Double = 32
Private Const ZENITHOR_DAY_NUMBER_EPOCH As Double = 2437299.5

Private Const Start As Double = 2461041.5 ' Julian day of 2026 January 1, 0h
Private Const Longitude As Double = 13.4  ' Berlin [deg], positive east
Private Const Latitude As Double = 52.5
Private Const Zone As Double = 1          ' [h] ahead of universal time

#If Win64 Then
Private Type BodyPositionRecord
    HelioLongitude As Double
    HelioLatitude As Double
    HelioDistance As Double
    GeoLongitude As Double
    GeoLatitude As Double
    GeoDistance As Double
    RightAscension As Double
    Declination As Double
    MoonPhaseAngle As Double
    MoonAxisPositionAngle As Double
    ReservedA(1 To 4) As Double
    MoonIlluminatedFraction As Double
    Obliquity As Double
    Centuries As Double
    Year As Long
    Month As Long
    Day As Long
    Hour As Long
    Minute As Long
    Second As Long
End Type

Private Type EventTimeBlock
    JulianDay As Double
    Year As Long
    Month As Long
    Day As Long
    Hour As Long
    Minute As Long
    Second As Long
End Type

Private Type EventRecord
    Blocks(0 To 18) As EventTimeBlock
End Type

Private Declare PtrSafe Function ZENITHOR Lib "zenithor.dll" Alias "_ZENITHOR" ( _
    ByVal JulianDay As Double, ByVal Ignored1 As Double, ByVal Ignored2 As Double, _
    ByVal ObserverLongitude As Double, ByVal ObserverLatitude As Double, _
    ByVal Ignored3 As Double, ByVal Body As Long, ByRef Record As BodyPositionRecord) As Double
Private Declare PtrSafe Function ALL_SE Lib "zenithor.dll" Alias "_ALL_SE" ( _
    ByVal JulianDay As Double, ByVal Ignored1 As Double, ByVal Ignored2 As Double, _
    ByRef Record As EventRecord) As Double
Private Declare PtrSafe Function GEO_RISE Lib "zenithor.dll" Alias "_GEO_RISE" ( _
    ByVal DayNumber As Double, ByVal Minutes As Double, ByVal ZoneHours As Double, _
    ByVal ObserverLongitude As Double, ByVal ObserverLatitude As Double, _
    ByVal Body As Long, ByVal Selector As Long) As Double
#End If

' An array is handed over as its first element.
#If VBA7 Then
Private Declare PtrSafe Function ZenithorValues Lib "zenithor_values.dll" ( _
    ByVal Body As Long, ByVal Field As Long, ByRef JulianDays As Double, _
    ByVal Count As Long, ByRef Values As Double) As Long
Private Declare PtrSafe Function ZenithorCalendar Lib "zenithor_values.dll" ( _
    ByVal JulianDay As Double, ByVal RoundTo As Double, ByRef DateParts As Long, _
    ByRef Second As Double) As Long
Private Declare PtrSafe Function ZenithorNextEventOfKinds Lib "zenithor_values.dll" ( _
    ByVal KindSet As Long, ByVal After As Double, ByRef Kind As Long) As Double
Private Declare PtrSafe Function ZenithorDailyStatus Lib "zenithor_values.dll" ( _
    ByVal Body As Long, ByVal RiseTransitOrSet As Long, ByVal JulianDay As Double, _
    ByVal ZoneHours As Double, ByVal Longitude As Double, ByVal Latitude As Double) As Long
Private Declare PtrSafe Function ZenithorDailyTime Lib "zenithor_values.dll" ( _
    ByVal Body As Long, ByVal RiseTransitOrSet As Long, ByVal JulianDay As Double, _
    ByVal ZoneHours As Double, ByVal Longitude As Double, ByVal Latitude As Double) As Double
#Else ' before Office 2010
Private Declare Function ZenithorValues Lib "zenithor_values.dll" ( _
    ByVal Body As Long, ByVal Field As Long, ByRef JulianDays As Double, _
    ByVal Count As Long, ByRef Values As Double) As Long
Private Declare Function ZenithorCalendar Lib "zenithor_values.dll" ( _
    ByVal JulianDay As Double, ByVal RoundTo As Double, ByRef DateParts As Long, _
    ByRef Second As Double) As Long
Private Declare Function ZenithorNextEventOfKinds Lib "zenithor_values.dll" ( _
    ByVal KindSet As Long, ByVal After As Double, ByRef Kind As Long) As Double
Private Declare Function ZenithorDailyStatus Lib "zenithor_values.dll" ( _
    ByVal Body As Long, ByVal RiseTransitOrSet As Long, ByVal JulianDay As Double, _
    ByVal ZoneHours As Double, ByVal Longitude As Double, ByVal Latitude As Double) As Long
Private Declare Function ZenithorDailyTime Lib "zenithor_values.dll" ( _
    ByVal Body As Long, ByVal RiseTransitOrSet As Long, ByVal JulianDay As Double, _
    ByVal ZoneHours As Double, ByVal Longitude As Double, ByVal Latitude As Double) As Double
#End If

Public Sub PrintSample()
#If Win64 Then
    PrintRecords
#End If
    PrintValues
End Sub

Private Function KindName(ByVal Kind As Long) As String
    KindName = Choose(Kind - ZENITHOR_BLOCK_SOLAR_TOTAL + 1, "total", "annular", "annular-total", _
        "non-central total", "non-central annular", "partial") & " solar eclipse"
End Function

Private Function DateText(ByVal Y As Long, ByVal M As Long, ByVal D As Long) As String
    DateText = Y & "-" & Format$(M, "00") & "-" & Format$(D, "00")
End Function

Private Function TimeText(ByVal H As Long, ByVal M As Long) As String
    TimeText = Format$(H, "00") & ":" & Format$(M, "00")
End Function

#If Win64 Then
Private Sub PrintRecords()
    Dim K As Long
    Dim Place As BodyPositionRecord
    Debug.Print "Records"
    For K = 0 To 4
        If ZENITHOR(Start + K, 0, 0, 0, 0, 0, ZENITHOR_BODY_MARS, Place) <> ZENITHOR_DONE Then
            Err.Raise vbObjectError, , "No data files: see ""Where the data are"" in the host guide."
        End If
        Debug.Print "Mars " & DateText(Place.Year, Place.Month, Place.Day) & " " & _
            Format$(Place.GeoLongitude, "0.000000")
    Next K

    Dim Events As EventRecord
    If ALL_SE(Start, 0, 0, Events) = 0 Then Err.Raise vbObjectError, , "No eclipse."
    For K = ZENITHOR_BLOCK_SOLAR_TOTAL To ZENITHOR_BLOCK_SOLAR_PARTIAL
        If Events.Blocks(K).JulianDay <> 0 Then
            With Events.Blocks(ZENITHOR_BLOCK_SOLAR_ANY)
                Debug.Print DateText(.Year, .Month, .Day) & " " & TimeText(.Hour, .Minute) & " " & _
                    KindName(K)
            End With
        End If
    Next K

    ' Longitude and zone are positive west here.
    Dim Sunrise As Double
    Sunrise = GEO_RISE(Start - ZENITHOR_DAY_NUMBER_EPOCH, 0, -Zone, -Longitude, Latitude, _
        ZENITHOR_BODY_SUN, ZENITHOR_RISE)
    If Sunrise = ZENITHOR_ALWAYS_UP Or Sunrise = ZENITHOR_NEVER_UP Or Sunrise = 0 Then
        Err.Raise vbObjectError, , "No sunrise."
    End If
    Dim Minutes As Long
    Minutes = Int(Sunrise + 0.5)
    Debug.Print "Berlin " & TimeText(Minutes \ 60, Minutes Mod 60) & " sunrise"
End Sub
#End If

Private Sub PrintValues()
    Dim K As Long
    Dim Days(0 To 4) As Double
    Dim Places(0 To 4) As Double
    Dim Parts(0 To 4) As Long ' year, month, day, hour, minute
    Dim Seconds As Double
    Debug.Print "Values"
    For K = 0 To 4
        Days(K) = Start + K
    Next K
    If ZenithorValues(ZENITHOR_BODY_MARS, ZENITHOR_FIELD_GEO_LONGITUDE, Days(0), 5, Places(0)) <> 5 Then
        Err.Raise vbObjectError, , "Not all values are numbers."
    End If
    For K = 0 To 4
        If ZenithorCalendar(Days(K), 0, Parts(0), Seconds) <> 0 Then Err.Raise vbObjectError, , "No date."
        Debug.Print "Mars " & DateText(Parts(0), Parts(1), Parts(2)) & " " & Format$(Places(K), "0.000000")
    Next K

    ' Where there is no answer the kind stays as it is.
    Dim Kind As Long
    Dim Eclipse As Double
    Kind = -1
    Eclipse = ZenithorNextEventOfKinds(ZENITHOR_KINDS_SOLAR_ECLIPSES, Start, Kind)
    If Kind < 0 Then Err.Raise vbObjectError, , "No eclipse."
    If ZenithorCalendar(Eclipse, 0, Parts(0), Seconds) <> 0 Then Err.Raise vbObjectError, , "No date."
    Debug.Print DateText(Parts(0), Parts(1), Parts(2)) & " " & TimeText(Parts(3), Parts(4)) & " " & _
        KindName(Kind)

    Dim Sunrise As Double
    If ZenithorDailyStatus(ZENITHOR_BODY_SUN, ZENITHOR_DAILY_RISE, Start + 0.5, Zone, Longitude, _
            Latitude) <> ZENITHOR_DAILY_HAPPENS Then
        Err.Raise vbObjectError, , "No sunrise."
    End If
    Sunrise = ZenithorDailyTime(ZENITHOR_BODY_SUN, ZENITHOR_DAILY_RISE, Start + 0.5, Zone, Longitude, _
        Latitude)
    If ZenithorCalendar(Sunrise + Zone / 24, 60, Parts(0), Seconds) <> 0 Then
        Err.Raise vbObjectError, , "No date."
    End If
    Debug.Print "Berlin " & TimeText(Parts(3), Parts(4)) & " sunrise"
End Sub
