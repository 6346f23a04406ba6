object A: TA
  S = 'it''s'
  Q = 'it$'#40's'#13#10
  Q2 = #$1F600'x'#55äßQ =32
  L = 
    'aaaaaaaaaaaaayA�aaaaaaa: Taaa' +
    'bbb'
  E = ''
end
