local function triple(n)
  return n * 3 % 1000
end

local t = os.clock()
local s = 0
for i = 1, 100000 do
  local v = triple(i)
  s = s + v
end
t = os.clock() - t
print("result", s)
print("seconds", t)
