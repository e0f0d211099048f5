[Kestrel Vise Toolkit, Language Resource]
%
   N00 G22
   M
