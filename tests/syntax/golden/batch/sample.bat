@echo off
REM build everything
rem lower case too
:: label comment
set NAME="value"
if exist out.txt del out.txt
for %%f in (*.c) do call build %%f
remark is not a comment
