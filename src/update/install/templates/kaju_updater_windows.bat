@echo off
REM Replaces a program by a new version once it has ended, and starts the new one.
REM Everything is copied first; then each item needs two renames, and the old one is kept until all are done.
REM Values are always quoted, and used without delayed expansion, so that they are not interpreted.
setlocal EnableExtensions DisableDelayedExpansion
chcp 65001 >nul

REM Paths are quoted as for a POSIX shell, names are not. A percent sign is doubled in both.
set "APP_NAME=@@APP_NAME@@"
set "APP_PARENT=@@APP_PARENT@@"
set "APP_VERSION=@@APP_VERSION@@"
set "NEW_APP_NAME=@@NEW_APP_NAME@@"
set "NEW_APP_PARENT=@@NEW_APP_PARENT@@"
set "TEMP_FOLDER=@@TEMP_FOLDER@@"
set "DECOMPRESSED_FOLDER=@@DECOMPRESSED_FOLDER@@"
set "PID_FILE=@@PID_FILE_PATH@@"

REM Remove the outer quotes, and unescape the quotes inside a path.
set "APP_PARENT=%APP_PARENT:~1,-1%"
set "NEW_APP_PARENT=%NEW_APP_PARENT:~1,-1%"
set "TEMP_FOLDER=%TEMP_FOLDER:~1,-1%"
set "DECOMPRESSED_FOLDER=%DECOMPRESSED_FOLDER:~1,-1%"
set "PID_FILE=%PID_FILE:~1,-1%"
set "APP_PARENT=%APP_PARENT:'\''='%"
set "NEW_APP_PARENT=%NEW_APP_PARENT:'\''='%"
set "TEMP_FOLDER=%TEMP_FOLDER:'\''='%"
set "DECOMPRESSED_FOLDER=%DECOMPRESSED_FOLDER:'\''='%"
set "PID_FILE=%PID_FILE:'\''='%"

set "APP_PATH=%APP_PARENT%\%APP_NAME%"
set "NEW_APP_PATH=%APP_PARENT%\%NEW_APP_NAME%"
set "STAGE=%APP_PARENT%\.kaju_updater.%RANDOM%%RANDOM%"
set "LOG=%TEMP%\kaju_updater.log"
set FAILED=
set TOUCHED=0

set "LINE=STARTING UPDATE OF %APP_NAME%"
call :log
set COUNTER=10
:wait
if not exist "%PID_FILE%" goto ended
set "LINE=Checking to see if %PID_FILE% exists, %COUNTER%"
call :log
ping -n 2 127.0.0.1 >nul
set /a COUNTER-=1 >nul
if not "%COUNTER%"=="0" goto wait
set "LINE=ERROR: Could not update app, it never quit"
call :log
exit /b 1
:ended

set "LINE=Copying new application from %NEW_APP_PARENT%"
call :log
for %%D in (new old failed) do mkdir "%STAGE%\%%D" 2>>"%LOG%"
call :each copy_item
if not defined FAILED call :each put_in
if defined FAILED goto restore

set "LINE=Removing old application %APP_NAME%"
call :log
set REPLACED=
call :each find_old
if not defined REPLACED del /f /q "%APP_PATH%"
rmdir /s /q "%STAGE%"
set "LINE=Starting new application at %NEW_APP_PATH%"
call :log
start "" "%NEW_APP_PATH%" --kaju-success "%APP_VERSION%"
set "LINE=Removing temp folder"
call :log
rmdir /s /q "%DECOMPRESSED_FOLDER%"
REM The folder contains this file, so nothing after this line is read.
rmdir /s /q "%TEMP_FOLDER%" & exit 0

:restore
set "LINE=Could not move in new application"
call :log
set "LINE=Attempting to restore old application and launch it"
call :log
set LOST=
call :each put_back
if not defined LOST rmdir /s /q "%STAGE%"
start "" "%APP_PATH%" --kaju-fail
exit /b 1

REM Calls a label for each item: NAME is the item, KEEP its name before it is moved in. The executable is the last.
:each
set INDEX=0
REM BEGIN PSEUDO-ARRAY
set /a INDEX+=1 >nul
set "NAME=@@OTHER_NAME@@"
set "KEEP=%INDEX%-@@OTHER_NAME_WO_SPACES@@"
call :%1
REM END PSEUDO-ARRAY
set /a INDEX+=1 >nul
set "NAME=%NEW_APP_NAME%"
set "KEEP=%INDEX%-executable"
call :%1
exit /b

REM The folder may be on another drive than the download, and "move" cannot move folders between drives.
:copy_item
if defined FAILED exit /b
set "FROM=%NEW_APP_PARENT%\%NAME%"
set "TO=%STAGE%\new\%KEEP%"
if exist "%FROM%\*" (
  xcopy "%FROM%" "%TO%" /e /i /h /k /q /y >nul 2>>"%LOG%"
) else (
  copy /b /y "%FROM%" "%TO%" >nul 2>>"%LOG%"
)
if errorlevel 1 set FAILED=1
if not exist "%TO%" set FAILED=1
exit /b

:put_in
if defined FAILED exit /b
set TOUCHED=%INDEX%
set "AT=%APP_PARENT%\%NAME%"
set "LINE=Moving new %NAME% to folder %APP_PARENT%"
call :log
if exist "%AT%" move "%AT%" "%STAGE%\old\%KEEP%" >nul 2>>"%LOG%"
if not exist "%AT%" move "%STAGE%\new\%KEEP%" "%AT%" >nul 2>>"%LOG%"
if exist "%STAGE%\new\%KEEP%" set FAILED=1
exit /b

REM An item whose new version was not moved in keeps the old one.
:put_back
if %INDEX% gtr %TOUCHED% exit /b
set "AT=%APP_PARENT%\%NAME%"
if not exist "%STAGE%\new\%KEEP%" move "%AT%" "%STAGE%\failed\%KEEP%" >nul 2>>"%LOG%"
if exist "%STAGE%\old\%KEEP%" move "%STAGE%\old\%KEEP%" "%AT%" >nul 2>>"%LOG%"
if exist "%STAGE%\old\%KEEP%" set LOST=1
exit /b

REM A new executable with another name has not replaced the old one, unless a companion has.
:find_old
if /i "%NAME%"=="%APP_NAME%" set REPLACED=1
exit /b

:log
>>"%LOG%" echo %DATE% %TIME% Kaju Update Script: "%LINE%"
exit /b
