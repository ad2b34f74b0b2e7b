architecture rtl of e is
--	signal a : bit;
--	signal b : bit;
begin
	a <= b;
	  b <= a;
end architecture rtl;
