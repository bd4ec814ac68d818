program Hello;
{ a comment
  over lines }
var
  i: Integer;
begin
  for i := 1 to 10 do
    WriteLn('Line ', i); // trailing
end.
