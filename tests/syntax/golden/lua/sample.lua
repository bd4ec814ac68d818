-- a table
local t = { 1, 2, 3.5, "four" }
function sum(list)
  local s = 0
  for _, v in ipairs(list) do s = s + v end
  return s
end
print(sum({1, 2}), 'ok')
