-- Reads every line of the file named by the first argument and sums the lengths.
local total = 0
for line in io.lines(arg[1]) do total = total + #line end
print(total)
