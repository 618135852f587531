local t = os.clock()
local s = 0
local x = 0.0
for i = 1, 1000000 do
  s = s + i % 7
  x = x + i * 0.5
end
t = os.clock() - t
print("result", s, x)
print("seconds", t)
