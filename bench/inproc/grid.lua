local t = os.clock()
local a = {}
for i = 0, 499 do
  local row = {}
  for j = 0, 499 do
    row[j] = math.sin(i * 0.01) * math.cos(j * 0.01)
  end
  a[i] = row
end
t = os.clock() - t
print("result", a[499][1])
print("seconds", t)
