local t = os.clock()
local k = 0
local s = 0
while k < 500000 do
  k = k + 1
  s = s + k % 3
end
t = os.clock() - t
print("result", k, s)
print("seconds", t)
