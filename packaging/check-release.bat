@echo off
rem Checks this release on this computer: the data that the 32-bit library reads, and its answers to the calls in golden.
rem The data files have to be installed before: win32\almanac.exe doctor --install
setlocal
cd /d "%~dp0"
win32\almanac.exe --library win32\zenithor.dll doctor
if errorlevel 1 goto failed
for %%f in (positions events rising) do (
  win32\almanac.exe --library win32\zenithor.dll check golden\%%f.tsv
  if errorlevel 1 goto failed
)
echo All is as it was released.
exit /b 0
:failed
echo Something differs: see above.
exit /b 1
